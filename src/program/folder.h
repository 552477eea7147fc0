#pragma once

#include <optional>
#include <string>

#include "platform/files.h"

namespace shell {
struct Shell;
}

namespace program {

// Where the program directory may come from.
struct FolderSources {
    std::optional<platform::Path> commandLine;  // --folder
    std::string home;                           // MARLOVENT_HOME
    platform::Path executable;                  // folder of the executable; counts when it holds a language file
    std::string userData;                       // XDG_DATA_HOME or %LOCALAPPDATA%
    std::string userHome;                       // HOME, in place of a missing userData
};

// The first source that says something.
platform::Path ProgramFolder(const FolderSources& sources, platform::Files& files);
// What ships with the program: beside the executable, in the installation's share folder, or in the source tree.
platform::Path ShippedFolder(const platform::Path& executable, const platform::Path& sourceTree,
                             platform::Files& files);

// Makes the directory; a new one, or one that has been filled only in part, gets what ships. What goes wrong is kept
// for TellFolderTrouble.
void PrepareFolder(shell::Shell& shell);
// Gives an older directory without any language what ships, once the language of this run has been chosen.
void CompleteFolder(shell::Shell& shell);
// The texts of the language in use; from what ships when the directory has none because it could not be filled.
void LoadLanguage(shell::Shell& shell);
// One clear message when the directory cannot be written or could not be filled.
void TellFolderTrouble(shell::Shell& shell);

}  // namespace program
