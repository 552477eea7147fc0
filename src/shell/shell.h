#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "pages/stack.h"
#include "platform/host.h"
#include "platform/text.h"
#include "shell/commands.h"
#include "shell/language.h"
#include "shell/main_window.h"
#include "shell/message.h"
#include "shell/settings_dialogs.h"
#include "shell/state.h"

namespace shell {

// Where the shell reaches rooms that stand above it; filled when the program is assembled.
struct Hooks {
    std::function<int()> ApriPorta;                        // opens the serial port anew; 0 on success
    std::vector<std::function<void()>> resolutionChanged;  // charts, instruments and limits look again
    std::function<void()> End;                             // the front end ends its event loop
};

// What is wrong with the program directory; told once, when the texts are there.
enum class FolderTrouble { None, Unwritable, Incomplete };

// The application's frame: the machine, the texts, the pages, the menus. One object, owned by the program.
struct Shell {
    Shell(const platform::Host& machine, Options given);
    Shell(const Shell&) = delete;
    Shell& operator=(const Shell&) = delete;

    platform::Host host;
    Options options;
    State state;
    Language language;
    pages::PageStack stack;
    Commands commands;
    Hooks hooks;
    FolderTrouble folderTrouble = FolderTrouble::None;
    bool wordless = false;  // an older directory held no language: this run has no texts, the next one will

    Marlovent main{*this};
    Messaggio messaggio{*this};
    SystemMessage systemMessage{*this};
    ConfSer confSer{*this};
    SceltaLingua sceltaLingua{*this};
    TipoComp tipoComp{*this};
    Risoluz risoluz{*this};
    Infor infor{*this};

    // A text by key and section of the language in use; empty when it is missing.
    const std::string& TestoLingua(std::string_view key, std::string_view section) const {
        return language.Text(key, section);
    }
    const std::string& TestoLingua(const Text& text) const { return language.Text(text.key, text.section); }
    // A text of a family.
    const std::string& TestoLingua(const Text& family, int number) const {
        return language.Text(std::string(family.key) + std::to_string(number), family.section);
    }
    void Beep();
    // The program ends at once: nothing is asked, nothing saved.
    void End(int exitStatus);
    // A file of the program directory. The name is in code page 1252 and holds no folder.
    platform::Path FileInFolder(const std::string& name) const { return options.folder / platform::ToUtf8(name); }
    // Makes a page known and gives it a command that opens it modally, with the title that the menu gives.
    void AddDialog(pages::Page& page);
};

// The usual title of a message.
const std::string& UsualTitle(const Shell& shell);

}  // namespace shell
