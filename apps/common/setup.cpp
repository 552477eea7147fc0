#include "common/setup.h"

#include <array>
#include <cstdlib>
#include <filesystem>

#include "program/folder.h"
#include "program/program.h"
#include "program/trace.h"

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif

namespace common {

namespace {

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

#ifdef _WIN32
constexpr const char* UserData = "LOCALAPPDATA";
constexpr const char* UserHome = "USERPROFILE";

platform::Path OwnFile() {
    std::array<wchar_t, 32768> name{};
    const DWORD length = GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
    return std::wstring(name.data(), length);
}
#else
constexpr const char* UserData = "XDG_DATA_HOME";
constexpr const char* UserHome = "HOME";

platform::Path OwnFile() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error);
}
#endif

}  // namespace

platform::Path ExecutableFolder(const char* argv0) {
    platform::Path file = OwnFile();
    std::error_code error;
    if (file.empty() && argv0 != nullptr) file = std::filesystem::canonical(argv0, error);
    return file.parent_path();
}

shell::Options ProgramOptions(const CommandLine& line, const platform::Path& executable, platform::Files& files) {
    program::FolderSources sources;
    sources.commandLine = line.folder;
    sources.home = Environment("MARLOVENT_HOME");
    sources.executable = executable;
    sources.userData = Environment(UserData);
    sources.userHome = Environment(UserHome);

    shell::Options options;
    const platform::Path folder = program::ProgramFolder(sources, files);
    std::error_code error;
    options.folder = std::filesystem::absolute(folder, error);
    if (error) options.folder = folder;
    options.shipped = program::ShippedFolder(executable, MARLOVENT_SOURCE_DATA, files);
    options.ports = line.ports;
    options.variant = line.variant;
    return options;
}

bool Trace(program::Program& program, const CommandLine& line) {
    if (!line.trace) return true;
    if (!program.shell.host.files.Write(*line.trace, {})) return false;
    program::TraceTo(program, *line.trace);
    return true;
}

int ExitStatus(const program::Program& program) {
    return program.shell.state.ended ? program.shell.state.exitStatus : 0;
}

}  // namespace common
