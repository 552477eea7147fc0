#include "shell/shell.h"

namespace shell {

Shell::Shell(const platform::Host& machine, Options given) : host(machine), options(std::move(given)) {
    state.CartellaProg = platform::FromUtf8(options.folder.string());
    state.VarianteQT = Flag(options.variant == Variant::Qt);
    state.VarianteAVX = Flag(options.variant == Variant::Avx);
    stack.Register(main);
    stack.Register(messaggio);
    stack.Register(systemMessage);
    for (pages::Page* dialog :
         std::initializer_list<pages::Page*>{&confSer, &sceltaLingua, &tipoComp, &risoluz, &infor}) {
        AddDialog(*dialog);
    }
    commands.Add("Esci", [this](const Call&) { End(0); });
}

void Shell::AddDialog(pages::Page& page) {
    stack.Register(page);
    commands.Add(page.Name(), [this, &page](const Call& call) {
        stack.OpenPage(page, true);
        if (&page == &infor) return;  // bears its own name, not that of the menu entry
        if (!call.title.empty()) page.SetTitle(call.title);
    });
}

void Shell::Beep() {
    ++state.beeps;
    host.sound.Beep();
}

void Shell::End(int exitStatus) {
    state.ended = true;
    state.exitStatus = exitStatus;
    if (hooks.End) hooks.End();
}

const std::string& UsualTitle(const Shell& shell) {
    return shell.TestoLingua("TITOLO_2", "ERRORI");
}

}  // namespace shell
