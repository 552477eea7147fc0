#include "platform/real/real_probe.h"

#ifndef _WIN32
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#ifdef __linux__
#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#endif

namespace platform::real {

#ifdef __linux__
namespace {

namespace fs = std::filesystem;

const fs::path Processes = "/proc";

bool IsNumber(const std::string& name) {
    return !name.empty() && std::all_of(name.begin(), name.end(), [](unsigned char c) { return std::isdigit(c) != 0; });
}

// Calls `look` with each entry of the folder until it answers true; true when it did.
template <class Look>
bool AnyEntry(const fs::path& folder, Look look) {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (look(entry->path())) return true;
    }
    return false;
}

bool HoldsOpen(const fs::path& process, const fs::path& device) {
    return AnyEntry(process / "fd", [&device](const fs::path& descriptor) {
        std::error_code error;
        return fs::read_symlink(descriptor, error) == device;
    });
}

// The system keeps a name of its own, cut to 15 characters; the whole of it is the one among the words of the command
// line that begins like it, which for a script is the script. A program without a command line has only the short one.
std::string ProgramName(const fs::path& process) {
    std::string shortName;
    std::ifstream comm(process / "comm");
    std::getline(comm, shortName);
    std::ifstream commandLine(process / "cmdline", std::ios::binary);
    std::string first;
    for (std::string word; std::getline(commandLine, word, '\0');) {
        std::string name = fs::path(word).filename().string();
        if (!shortName.empty() && name.starts_with(shortName)) return name;
        if (first.empty()) first = name;
    }
    if (!first.empty()) return first;
    return shortName.empty() ? process.filename().string() : shortName;
}

}  // namespace
#endif

PortFacts RealProbe::Look([[maybe_unused]] const std::string& device) {
    PortFacts facts;
#ifndef _WIN32
    if (const passwd* user = getpwuid(geteuid()); user != nullptr) facts.user = user->pw_name;
    struct stat status {};
    facts.present = stat(device.c_str(), &status) == 0;
    if (!facts.present) return facts;
    facts.permitted = access(device.c_str(), R_OK | W_OK) == 0;
    if (const group* owner = getgrgid(status.st_gid); owner != nullptr) facts.group = owner->gr_name;
#endif
    return facts;
}

#ifdef __linux__
std::string RealProbe::HolderOf(const std::string& device) {
    std::error_code error;
    const fs::path real = fs::canonical(device, error);
    if (error) return {};
    const std::string own = std::to_string(getpid());
    std::string holder;
    AnyEntry(Processes, [&](const fs::path& process) {
        const std::string pid = process.filename().string();
        if (!IsNumber(pid) || pid == own || !HoldsOpen(process, real)) return false;
        holder = ProgramName(process);
        return true;
    });
    return holder;
}
#else
std::string RealProbe::HolderOf(const std::string&) {
    return {};
}
#endif

}  // namespace platform::real
