#include "program/folder.h"

#include <array>
#include <vector>

#include "shell/settings.h"
#include "shell/shell.h"

namespace program {

namespace {

using shell::FolderTrouble;

#ifdef _WIN32
constexpr const char* FolderName = "Marlovent";
#else
constexpr const char* FolderName = "marlovent";
#endif
constexpr const char* LanguageExtension = ".LNG";
constexpr const char* FillingMark = ".marlovent.new";  // stands in a directory as long as it has not been filled

// What ships, by extension.
constexpr std::array<const char*, 1> ShippedExtensions{LanguageExtension};

bool Wordless(shell::Shell& shell) {
    return shell.host.files.List(shell.options.folder, LanguageExtension).empty();
}

bool IsNew(shell::Shell& shell) {
    platform::Files& files = shell.host.files;
    return !shell::MarloExists(shell) && !files.Exists(shell.options.folder / "CONFIG.INI") && Wordless(shell);
}

// The files that ship and that the directory does not hold.
std::vector<std::string> Missing(shell::Shell& shell) {
    platform::Files& files = shell.host.files;
    std::vector<std::string> missing;
    for (const char* extension : ShippedExtensions) {
        for (const std::string& name : files.List(shell.options.shipped, extension)) {
            if (!files.Exists(shell.FileInFolder(name))) missing.push_back(name);
        }
    }
    return missing;
}

// Copies what is missing; never over a file that is there. What could not be copied is told, and tried again by the
// next start: the mark tells this directory from one that its owner keeps with fewer files.
void Fill(shell::Shell& shell) {
    platform::Files& files = shell.host.files;
    const platform::Path mark = shell.options.folder / FillingMark;
    files.Write(mark, {});
    for (const std::string& name : Missing(shell)) {
        files.Copy(shell.options.shipped / platform::ToUtf8(name), shell.FileInFolder(name));
    }
    if (Missing(shell).empty()) {
        files.Remove(mark);
    } else {
        shell.folderTrouble = FolderTrouble::Incomplete;
    }
}

std::string Joined(const std::vector<std::string>& names) {
    std::string out;
    for (const std::string& name : names) out += (out.empty() ? "" : ", ") + name;
    return out;
}

}  // namespace

platform::Path ProgramFolder(const FolderSources& sources, platform::Files& files) {
    if (sources.commandLine) return *sources.commandLine;
    if (!sources.home.empty()) return sources.home;
    if (!sources.executable.empty() && !files.List(sources.executable, LanguageExtension).empty())
        return sources.executable;
    if (!sources.userData.empty()) return platform::Path(sources.userData) / FolderName;
    return platform::Path(sources.userHome) / ".local" / "share" / FolderName;
}

platform::Path ShippedFolder(const platform::Path& executable, const platform::Path& sourceTree,
                             platform::Files& files) {
    for (const platform::Path& folder :
         {executable / "data", executable.parent_path() / "share" / FolderName, sourceTree}) {
        if (!files.List(folder, LanguageExtension).empty()) return folder;
    }
    return {};
}

void PrepareFolder(shell::Shell& shell) {
    if (!shell.host.files.MakeFolders(shell.options.folder)) {
        shell.folderTrouble = FolderTrouble::Unwritable;
        return;
    }
    if (IsNew(shell) || shell.host.files.Exists(shell.options.folder / FillingMark)) {
        Fill(shell);
    } else {
        shell.wordless = Wordless(shell);
    }
}

// A directory with a language of its own has what it needs: another one beside it could become the language of its next
// start.
void CompleteFolder(shell::Shell& shell) {
    if (shell.folderTrouble != FolderTrouble::None || !Wordless(shell)) return;
    Fill(shell);
    if (Wordless(shell)) shell.folderTrouble = FolderTrouble::Incomplete;
}

void LoadLanguage(shell::Shell& shell) {
    if (shell.wordless && shell.folderTrouble == FolderTrouble::None) return;
    const std::string name = shell.state.Lingua + LanguageExtension;
    platform::Path file = shell.FileInFolder(name);
    if (shell.folderTrouble != FolderTrouble::None && !shell.host.files.Exists(file)) {
        file = shell.options.shipped / platform::ToUtf8(name);
    }
    shell.language.Load(shell.host.files, file);
}

void TellFolderTrouble(shell::Shell& shell) {
    if (shell.folderTrouble == FolderTrouble::None) return;
    const char* key = shell.folderTrouble == FolderTrouble::Unwritable ? "CARTELLA_PROTETTA" : "CARTELLA_INCOMPLETA";
    const std::string& text = shell.TestoLingua(key, "AVVIO");
    const std::string missing = Joined(Missing(shell));
    shell.Beep();
    // Where no language can be read there are no words: the key and the directory must do.
    shell.systemMessage.Show(shell::UsualTitle(shell), text.empty()
                                                           ? std::string(key) + ": " + shell.state.CartellaProg
                                                           : shell::Fill(text, shell.state.CartellaProg, missing));
}

}  // namespace program
