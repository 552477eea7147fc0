#include "program/folder.h"

#include <array>

#include "shell/settings.h"
#include "shell/shell.h"

namespace program {

namespace {

using shell::FolderTrouble;

constexpr const char* FolderName = "marlovent";
constexpr const char* LanguageExtension = ".LNG";

// What ships, by extension.
constexpr std::array<const char*, 1> ShippedExtensions{LanguageExtension};

bool IsNew(shell::Shell& shell) {
    platform::Files& files = shell.host.files;
    return !shell::MarloExists(shell) && !files.Exists(shell.options.folder / "CONFIG.INI") &&
           files.List(shell.options.folder, LanguageExtension).empty();
}

bool CopyShipped(shell::Shell& shell) {
    bool whole = true;
    for (const char* extension : ShippedExtensions) {
        for (const std::string& name : shell.host.files.List(shell.options.shipped, extension)) {
            const platform::Path file = platform::ToUtf8(name);
            whole = shell.host.files.Copy(shell.options.shipped / file, shell.options.folder / file) && whole;
        }
    }
    return whole;
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
    if (IsNew(shell) && !CopyShipped(shell)) shell.folderTrouble = FolderTrouble::Incomplete;
}

void LoadLanguage(shell::Shell& shell) {
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
    shell.Beep();
    shell.systemMessage.Show(shell::UsualTitle(shell),
                             shell::Fill(shell.TestoLingua(key, "AVVIO"), shell.state.CartellaProg));
}

}  // namespace program
