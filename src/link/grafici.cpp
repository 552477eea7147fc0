#include "link/grafici.h"

#include <algorithm>
#include <array>

#include "link/lamps.h"
#include "link/link.h"

namespace eculink {

namespace {

// Channels without an instrument of their own: no field fills them, another shows them, or lamps do.
constexpr std::array<int, 5> NoInstrument{Pompata, RiccoMagro, Commut, Led, Stored};

bool Shown(int channel) {
    return std::find(NoInstrument.begin(), NoInstrument.end(), channel) == NoInstrument.end();
}

std::string Trimmed(const std::string& text) {
    return std::string(platform::Trim(text));
}

void LoadNames(Link& link) {
    Grafici& page = link.grafici;
    for (int channel = 0; channel < InstrumentCount; ++channel) {
        const ChannelInfo& info = link.DescrCanale[static_cast<std::size_t>(channel)];
        page.LabMot[channel].SetText(info.Nome);
        page.UmMot[channel].SetText(info.UM[static_cast<std::size_t>(link.state.VistaDati)]);
        for (pages::Label* label : {&page.LabMot[channel], &page.DatiMot[channel], &page.UmMot[channel]}) {
            label->SetVisible(Shown(channel));
        }
    }
}

void ShowViewButtons(Link& link) {
    for (int view = 0; view < Views; ++view) {
        const bool inForce = link.state.VistaDati == view;
        pages::Button& button = link.grafici.Visualizzo[view];
        button.Enable(!inForce, pages::Reason::ViewInForce);
        button.SetVisible(!inForce);
    }
}

void ShowFigures(Link& link) {
    Grafici& page = link.grafici;
    const Record& record = link.RecCanali;
    for (int channel = 0; channel < InstrumentCount; ++channel) {
        if (channel == Zone || channel == Pompata || channel == RiccoMagro || channel == Macro) continue;
        std::string text = InstrumentText(link, channel);
        if (channel == Lambda) text = Trimmed(record.Grezzo[RiccoMagro]) + " " + text;
        page.DatiMot[channel].SetText(std::move(text));
    }
    page.DatiMot[Macro].SetText(record.Valore[Macro]);
    page.DatiMot[Zone].SetText(record.Valore[Zone]);
}

}  // namespace

Grafici::Grafici(Link& owner) : Page("Grafici"), link_(owner) {
    for (int view = 0; view < Views; ++view) {
        Visualizzo[view].onPress = [this, view] { CambiaUnita(link_, view); };
    }
    LedC.SetColour("white");
    for (const auto& lamp : Led) lamp->SetColour("white");
    Commu.SetIndex(UnknownPosition);
    // Closing by hand is refused as long as nothing is on the chart, unless the main window itself is closing.
    whyNotClose = [this] {
        return link_.shell.state.InChiusura == shell::True ? pages::Reason::None : pages::Reason::EmptyChart;
    };
}

void Grafici::Opening() {
    SetTitle(link_.shell.TestoLingua("CAPTION", "GRAFICI"));
    for (int view = 0; view < Views; ++view) {
        Visualizzo[view].SetText(link_.shell.TestoLingua("VISUALIZZO." + std::to_string(view), "GRAFICI"));
    }
    CommuTesto.SetText(link_.shell.TestoLingua("COMMUT." + std::to_string(Commu.Index()), "GRAFICI"));
    LoadNames(link_);
    ShowViewButtons(link_);
    SetInstrumentsInView(link_, true);
}

void Grafici::Closed() {
    SetInstrumentsInView(link_, false);
}

void SetInstrumentsInView(Link& link, bool inView) {
    link.state.PaginaStrumenti = shell::Flag(inView);
    if (inView) link.state.refresh = true;
}

void AggiornaPagina(Link& link) {
    if (link.state.PaginaStrumenti == shell::False) return;
    LampadeStato(link);
    // A calibration step holds the figures; without one they also follow what no frame has brought, as when a unit
    // goes.
    const bool held = link.state.DatoNuovo == shell::False && link.shell.state.FaseAcq != shell::NoPhase;
    if (held || !link.state.refresh) return;
    link.state.refresh = false;
    ShowFigures(link);
    const std::int32_t samples = link.RecCanali.Progressivo;
    link.shell.main.Campioni.SetText(
        shell::Fill(link.shell.TestoLingua("CAMPIONI.0", "STATO"), std::to_string(samples)));
}

void CambiaUnita(Link& link, int view) {
    link.state.VistaDati = view;
    LoadNames(link);
    ShowViewButtons(link);
    link.state.refresh = true;
}

}  // namespace eculink
