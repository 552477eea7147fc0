#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

// The command as a fitter starts it: a real process on a real pseudo-terminal.
namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::seconds Limit{20};  // far above what anything here takes; a slow machine must not fail

// Reads until the text holds `wanted` so many times, the other end is closed, or the limit is reached.
std::string ReadUntil(int descriptor, const std::string& wanted, std::size_t times = 1) {
    std::string out;
    const auto end = Clock::now() + Limit;
    while (Clock::now() < end) {
        std::size_t found = 0;
        for (std::size_t at = out.find(wanted); at != std::string::npos; at = out.find(wanted, at + 1)) ++found;
        if (found >= times) return out;
        pollfd source{descriptor, POLLIN, 0};
        if (::poll(&source, 1, 100) <= 0) continue;
        std::array<char, 1024> buffer{};
        const ssize_t count = ::read(descriptor, buffer.data(), buffer.size());
        if (count <= 0) return out;
        out.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return out;
}

class Process {
  public:
    explicit Process(std::vector<std::string> arguments) {
        std::array<int, 2> in{};
        std::array<int, 2> out{};
        std::array<int, 2> err{};
        EXPECT_TRUE(::pipe(in.data()) == 0 && ::pipe(out.data()) == 0 && ::pipe(err.data()) == 0);
        arguments.insert(arguments.begin(), CENTRALINA);
        child_ = ::fork();
        if (child_ == 0) {
            ::dup2(in[0], STDIN_FILENO);
            ::dup2(out[1], STDOUT_FILENO);
            ::dup2(err[1], STDERR_FILENO);
            for (const int end : {in[0], in[1], out[0], out[1], err[0], err[1]}) ::close(end);
            std::vector<char*> words;
            for (std::string& argument : arguments) words.push_back(argument.data());
            words.push_back(nullptr);
            ::execv(CENTRALINA, words.data());
            ::_exit(127);
        }
        for (const int end : {in[0], out[1], err[1]}) ::close(end);
        in_ = in[1];
        out_ = out[0];
        err_ = err[0];
    }
    ~Process() {
        if (child_ > 0) {
            ::kill(child_, SIGKILL);
            Wait();
        }
        CloseInput();
        ::close(out_);
        ::close(err_);
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    std::string Line() { return ReadUntil(out_, "\n"); }
    std::string Complaints() { return ReadUntil(err_, "no such text"); }
    void Say(const std::string& text) {
        EXPECT_EQ(::write(in_, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    void CloseInput() {
        if (in_ >= 0) ::close(in_);
        in_ = -1;
    }
    void Terminate() { ::kill(child_, SIGTERM); }
    int Wait() {
        int status = 0;
        ::waitpid(child_, &status, 0);
        child_ = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

  private:
    pid_t child_ = -1;
    int in_ = -1;
    int out_ = -1;
    int err_ = -1;
};

std::filesystem::path FreshName() {
    return std::filesystem::temp_directory_path() / ("marlovent-centralina-" + std::to_string(std::random_device{}()));
}

TEST(Centralina, StreamsAndAnswersOnItsDeviceAgainAndAgainUntilItIsStopped) {
    const std::filesystem::path link = FreshName();
    Process unit({"--link", link.string(), "--rate", "50", "--version-text", "01.05 B002"});
    const std::string first = unit.Line();
    ASSERT_EQ(first.rfind("device /dev/", 0), 0U) << first;
    EXPECT_EQ(std::filesystem::read_symlink(link), first.substr(7, first.size() - 8));
    for (int visit = 0; visit < 3; ++visit) {
        const int line = ::open(link.c_str(), O_RDWR | O_NOCTTY);
        ASSERT_GE(line, 0);
        const std::string live = ReadUntil(line, "\x03", 5);
        EXPECT_EQ(live.substr(0, 2),
                  "\x02"
                  "D");
        EXPECT_EQ(live.find('\x03'), 50U);
        for (const char c : std::string("\x02X327680010\x03")) EXPECT_EQ(::write(line, &c, 1), 1);
        EXPECT_NE(ReadUntil(line, "\x02x").find("\x02x"), std::string::npos);
        ::close(line);
    }
    unit.Terminate();
    EXPECT_EQ(unit.Wait(), 0);
    EXPECT_FALSE(std::filesystem::is_symlink(link));
}

TEST(Centralina, TakesScenarioLinesAndEndsWithItsInput) {
    Process unit({"--commands", "--blank"});
    ASSERT_EQ(unit.Line().rfind("device ", 0), 0U);
    const std::pair<const char*, const char*> table[] = {
        {"read L 0 4\n", "ok data=FFFFFFFF\n"},
        {"version \"00.99 A\"\n", "ok\n"},
        {"count R\n", "ok count=0\n"},
        {"# nothing\n", "ok\n"},
        {"nonsense\n", "error unknown command \"nonsense\"\n"},
        {"log 0\n", "ok\n"},
    };
    for (const auto& [line, answer] : table) {
        unit.Say(line);
        EXPECT_EQ(unit.Line(), answer) << line;
    }
    unit.Say("read O 4080 2");  // a last line without an end
    unit.CloseInput();
    EXPECT_EQ(unit.Line(), "ok data=FFFF\n");
    EXPECT_EQ(unit.Wait(), 0);
}

TEST(Centralina, RefusesABadCommandLineWithOneLineAndStatusTwo) {
    const std::filesystem::path bad = FreshName();
    const std::vector<std::vector<std::string>> table = {
        {"--nonsense"},
        {"idle.scn"},
        {"--rate"},
        {"--rate", "fast"},
        {"--rate=0"},
        {"--seed", "one"},
        {"--seed", "-1"},
        {"--version-text", "01.04 A0012"},
        {"--version-text", "\""},
        {"--blank=yes"},
        {"--scenario", bad.string()},
        {"--scenario", CENTRALINA},
        {"--link", std::filesystem::temp_directory_path().string()},
        {"--link", (bad / "below").string()},
    };
    for (const auto& arguments : table) {
        Process unit(arguments);
        const std::string complaint = unit.Complaints();
        EXPECT_EQ(unit.Line(), "") << arguments[0];
        EXPECT_EQ(unit.Wait(), 2) << arguments[0];
        EXPECT_EQ(complaint.rfind("centralina: ", 0), 0U) << complaint;
        EXPECT_EQ(complaint.find('\n'), complaint.size() - 1) << complaint;
    }
}

}  // namespace
