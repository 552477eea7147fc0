#include "common/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "platform/text.h"
#include "shell/settings.h"
#include "shell/version.h"

namespace common {

namespace {

constexpr std::string_view PortPrefix = "COM";

struct VariantRow {
    const char* word;
    shell::Variant variant;
};
constexpr std::array<VariantRow, 3> Variants{{
    {"NONE", shell::Variant::None},
    {"QT", shell::Variant::Qt},
    {"AVX", shell::Variant::Avx},
}};

const char* NameOf(FrontEnd frontEnd) {
    return frontEnd == FrontEnd::Console ? "marlovent-console" : "marlovent";
}

// The texts of the options as they were given.
struct Given {
    std::optional<std::string> folder;
    std::vector<std::string> ports;
    std::string scenario;
    std::optional<std::string> variant;
    std::optional<std::string> trace;
};

// A path as it is meant where the program is called: at its start it goes to the program directory.
platform::Path FromHere(const platform::Path& path) {
    std::error_code error;
    const platform::Path whole = std::filesystem::absolute(path, error);
    return error ? path : whole.lexically_normal();
}

// A bare name ("ttyUSB0", "COM3") is one that the system knows wherever it is used.
std::string DeviceFromHere(const std::string& device) {
    return platform::Path(device).has_parent_path() ? FromHere(device).string() : device;
}

// Splits "COM3=/dev/ttyUSB0"; empty when it is well formed, else what is wrong.
std::string ReadPort(const std::string& text, CommandLine& line) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos || equals + 1 == text.size())
        return "--port takes COMn=DEVICE, not \"" + text + "\"";
    const std::string name = text.substr(0, equals);
    int number = 0;
    const bool prefixed = platform::EqualsIgnoringCase(name.substr(0, PortPrefix.size()), PortPrefix);
    const char* const end = name.data() + name.size();
    const char* const digits = prefixed ? name.data() + PortPrefix.size() : end;
    const auto [read, error] = std::from_chars(digits, end, number);
    if (error != std::errc() || read != end || *digits == '0' || number < 1 || number > shell::Ports)
        return "--port knows COM1 to COM" + std::to_string(shell::Ports) + ", not \"" + name + "\"";
    line.ports[number] = DeviceFromHere(text.substr(equals + 1));
    return {};
}

std::string ReadVariant(const std::string& text, CommandLine& line) {
    for (const VariantRow& row : Variants) {
        if (!platform::EqualsIgnoringCase(platform::Trim(text), row.word)) continue;
        line.variant = row.variant;
        return {};
    }
    return "--variant takes NONE, QT or AVX, not \"" + text + "\"";
}

// A path that was given must be one: an empty text is a script's variable that nobody has set.
std::string ReadPath(const char* option, const std::optional<std::string>& text, std::optional<platform::Path>& path) {
    if (!text) return {};
    path = FromHere(*text);
    return text->empty() ? std::string(option) + " takes a name, not an empty text" : std::string();
}

// Takes over what the parser cannot check by itself; the first thing wrong, or an empty text.
std::string Take(const Given& given, CommandLine& line) {
    std::string wrong = ReadPath("--folder", given.folder, line.folder);
    if (wrong.empty()) wrong = ReadPath("--trace", given.trace, line.trace);
    for (const std::string& port : given.ports) {
        if (wrong.empty()) wrong = ReadPort(port, line);
    }
    if (wrong.empty() && given.variant) wrong = ReadVariant(*given.variant, line);
    if (!given.scenario.empty()) line.scenario = given.scenario;
    if (wrong.empty() && line.virtualTime && !line.simulate) wrong = "--virtual-time works only with --simulate";
    return wrong;
}

std::string WithoutLastLineEnd(std::string text) {
    while (!text.empty() && text.back() == '\n') text.pop_back();
    return text;
}

std::string OneLine(FrontEnd frontEnd, const std::string& message) {
    std::string out = std::string(NameOf(frontEnd)) + ": " + WithoutLastLineEnd(message);
    std::replace(out.begin(), out.end(), '\n', ' ');
    std::replace(out.begin(), out.end(), '\r', ' ');
    return out;
}

}  // namespace

Reading ReadCommandLine(FrontEnd frontEnd, const std::vector<std::string>& arguments) {
    CommandLine line;
    Given given;
    CLI::App app{frontEnd == FrontEnd::Console
                     ? "Marlovent without windows: commands on standard input, one answer a line."
                     : "Marlovent: tuning of gas fuel systems.",
                 NameOf(frontEnd)};
    app.set_help_flag("--help", "Show this help and end");
    app.set_version_flag("--version", std::string(NameOf(frontEnd)) + " " + shell::VersionText(),
                         "Show the version and end");
    app.add_option("--folder", given.folder, "The program directory")->type_name("DIR");
    app.add_option("--port", given.ports, "The device behind a port name for this run")
        ->type_name("COMn=DEVICE")
        ->allow_extra_args(false);
    CLI::Option* simulate =
        app.add_option("--simulate", given.scenario, "The built-in simulated unit answers on the configured port")
            ->type_name("[SCENARIO]")
            ->expected(0, 1);
    app.add_option("--variant", given.variant, "The variant word")->type_name("NONE|QT|AVX");
    app.add_option("--trace", given.trace, "Write every frame sent and received to a file")->type_name("FILE");
    if (frontEnd == FrontEnd::Console) {
        app.add_flag("--virtual-time", line.virtualTime, "With --simulate: time passes only inside run and wait");
    } else {
        app.add_flag("--console", line.console, "Read the commands of the console on standard input too");
    }
    try {
        // The parser takes its arguments from the back.
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::CallForHelp&) {
        return {std::nullopt, 0, WithoutLastLineEnd(app.help())};
    } catch (const CLI::CallForVersion& version) {
        return {std::nullopt, 0, WithoutLastLineEnd(version.what())};
    } catch (const CLI::Error& error) {
        return {std::nullopt, BadOptions, OneLine(frontEnd, error.what())};
    }
    line.simulate = simulate->count() > 0;
    const std::string wrong = Take(given, line);
    if (!wrong.empty()) return {std::nullopt, BadOptions, OneLine(frontEnd, wrong)};
    return {std::move(line), 0, {}};
}

int Tell(const Reading& reading) {
    std::fprintf(reading.exitStatus == 0 ? stdout : stderr, "%s\n", reading.message.c_str());
    return reading.exitStatus;
}

int Complain(FrontEnd frontEnd, const std::string& message) {
    return Tell({std::nullopt, BadOptions, OneLine(frontEnd, message)});
}

}  // namespace common
