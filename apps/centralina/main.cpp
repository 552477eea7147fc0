#include <poll.h>
#include <signal.h>  // NOLINT(modernize-deprecated-headers): the masks are POSIX's
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "answer_text.h"
#include "command_input.h"
#include "options.h"
#include "platform/real/real_files.h"
#include "platform/real/system_clock.h"
#include "platform/virtual/world.h"
#include "pty.h"
#include "sim/unit.h"

namespace {

constexpr int ExitFailure = 1;
constexpr int ExitBadOptions = 2;
constexpr std::int64_t MicrosPerMilli = 1000;
constexpr std::int64_t LongestWait = 100 * MicrosPerMilli;  // so soon an ending signal or a new reader is seen

// Ending signals wait until the loop looks at them; a reader that went away is no reason to end.
class Signals {
  public:
    Signals() {
        ::sigemptyset(&ending_);
        for (const int number : {SIGINT, SIGTERM, SIGHUP}) ::sigaddset(&ending_, number);
        ::sigprocmask(SIG_BLOCK, &ending_, nullptr);
        ::signal(SIGPIPE, SIG_IGN);
    }
    bool Ended() const {
        sigset_t pending;
        ::sigpending(&pending);
        return ::sigismember(&pending, SIGINT) == 1 || ::sigismember(&pending, SIGTERM) == 1 ||
               ::sigismember(&pending, SIGHUP) == 1;
    }

  private:
    sigset_t ending_{};
};

// A symbolic link to the device, gone again at the end unless somebody else has put another one there.
class DeviceLink {
  public:
    DeviceLink() = default;
    ~DeviceLink() {
        std::error_code ignored;
        if (!path_.empty() && std::filesystem::read_symlink(path_, ignored) == device_) {
            std::filesystem::remove(path_, ignored);
        }
    }
    DeviceLink(const DeviceLink&) = delete;
    DeviceLink& operator=(const DeviceLink&) = delete;

    // An old link in that place is replaced; anything else there is left alone.
    bool Make(const std::string& path, const std::string& device) {
        std::error_code fault;
        if (std::filesystem::is_symlink(path, fault)) std::filesystem::remove(path, fault);
        std::filesystem::create_symlink(device, path, fault);
        if (fault) return false;
        path_ = path;
        device_ = device;
        return true;
    }

  private:
    std::filesystem::path path_;
    std::filesystem::path device_;
};

int Complain(const std::string& reason, int status) {
    std::cerr << "centralina: " << reason << '\n';
    return status;
}

// The scenario, then what the options say; a reason when one of them cannot be done.
std::string Prepare(sim::Unit& unit, platform::Files& files, const Options& options) {
    std::string text(sim::StandardScenario());
    if (!options.scenario.empty()) {
        const auto read = files.Read(options.scenario);
        if (!read) return "\"" + options.scenario + "\" cannot be read";
        text = *read;
    }
    const sim::Answer loaded = unit.Load(text);
    if (!loaded.ok) return "\"" + options.scenario + "\", " + loaded.error;
    for (const std::string& line : options.lines) {
        const sim::Answer answer = unit.Line(line);
        if (!answer.ok) return answer.error;
    }
    return {};
}

int WaitMillis(const platform::virt::World& world, std::int64_t now) {
    const std::int64_t due = world.NextDue();
    const std::int64_t wait = due == platform::virt::World::Never ? LongestWait : due - now;
    return static_cast<int>((std::clamp<std::int64_t>(wait, 0, LongestWait) + MicrosPerMilli - 1) / MicrosPerMilli);
}

// Real time drives the unit's virtual time; between two moments the loop waits for the device and the input alone.
void Run(platform::virt::World& world, sim::Unit& unit, Pty& pty, bool commands, const Signals& signals) {
    const platform::real::SystemClock clock;
    CommandInput input(STDIN_FILENO);
    bool more = true;
    while (more && !signals.Ended()) {
        world.RunUntil(clock.ElapsedMicros());
        const short wanted = pty.Pending() ? POLLIN | POLLOUT : POLLIN;
        std::array<pollfd, 2> sources{
            {{pty.InUse() ? pty.Descriptor() : -1, wanted, 0}, {commands ? input.Descriptor() : -1, POLLIN, 0}}};
        if (::poll(sources.data(), sources.size(), WaitMillis(world, clock.ElapsedMicros())) < 0) continue;
        world.RunUntil(clock.ElapsedMicros());
        if ((sources[0].revents & POLLOUT) != 0) pty.Flush();
        if ((sources[0].revents & POLLIN) != 0) pty.Receive();
        if ((sources[1].revents & (POLLIN | POLLHUP | POLLERR)) != 0) {
            more = input.Read([&](std::string_view line) {
                std::cout << AnswerText(unit.Line(line)) << std::endl;  // whoever asked waits for the line
            });
        }
    }
}

int Main(const std::vector<std::string>& arguments) {
    std::string error;
    const Options options = ReadOptions(arguments, error);
    if (!error.empty()) return Complain(error, ExitBadOptions);
    if (options.help) {
        std::cout << HelpText();
        return 0;
    }
    if (options.version) {
        std::cout << "centralina " << MARLOVENT_VERSION << '\n';
        return 0;
    }
    const Signals signals;
    platform::real::RealFiles files;
    platform::virt::World world;
    Pty pty;
    if (!pty.Open()) return Complain("the system gives no pseudo-terminal", ExitFailure);
    sim::Unit unit(world, world, pty, options.seed);
    unit.UseFiles(files);
    if (const std::string reason = Prepare(unit, files, options); !reason.empty()) {
        return Complain(reason, ExitBadOptions);
    }
    DeviceLink link;
    if (!options.link.empty() && !link.Make(options.link, pty.Device())) {
        return Complain("\"" + options.link + "\" cannot be made a link", ExitBadOptions);
    }
    std::cout << "device " << pty.Device() << std::endl;
    Run(world, unit, pty, options.commands, signals);
    return 0;
}

}  // namespace

int main(int count, char** arguments) {
    try {
        return Main(std::vector<std::string>(arguments + 1, arguments + count));
    } catch (const std::exception& fault) {
        return Complain(fault.what(), ExitFailure);
    }
}
