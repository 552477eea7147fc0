#include "shell/settings_dialogs.h"

#include <algorithm>
#include <array>

#include "platform/ini_file.h"
#include "platform/text.h"
#include "shell/message.h"
#include "shell/settings.h"
#include "shell/shell.h"
#include "shell/version.h"

namespace shell {

namespace {

constexpr std::array<const char*, 4> BaudRates{"4800", "9600", "19200", "38400"};
constexpr std::array<const char*, 2> DataBits{"7", "8"};
constexpr std::array<const char*, 3> StopBits{"1", "1.5", "2"};
constexpr std::array<const char*, 3> Parities{"NESSUNA", "PARI", "DISPARI"};  // as CONFIG.INI names them
constexpr std::array<const char*, 2> Resolutions{"0", "1"};                   // full, reduced

template <class Texts>
std::vector<std::string> Items(const Texts& texts) {
    return {texts.begin(), texts.end()};
}

template <class Texts>
int IndexOf(const Texts& texts, const std::string& wanted) {
    const auto found = std::find_if(texts.begin(), texts.end(), [&](const auto& text) {
        return platform::EqualsIgnoringCase(text, platform::Trim(wanted));
    });
    return found == texts.end() ? -1 : static_cast<int>(found - texts.begin());
}

std::vector<std::string> ListTexts(Shell& shell, const std::string& section, int count) {
    std::vector<std::string> items;
    for (int i = 0; i < count; ++i) items.push_back(shell.TestoLingua("TIPO." + std::to_string(i), section));
    return items;
}

// "/dev/ttyUSB0", with a remark when no such device is there now.
std::string PortRemark(Shell& shell, int port) {
    const std::string device = DeviceOfPort(shell, port);
    const bool present = shell.host.probe.Look(device).present;
    const std::string name = "COM" + std::to_string(port);
    return Fill(shell.TestoLingua(present ? "PRESENTE.0" : "ASSENTE.0", "STATO"), name, platform::FromUtf8(device));
}

}  // namespace

SettingsPage::SettingsPage(Shell& owner, const std::string& name, std::string section)
    : Page(name), shell_(owner), section_(std::move(section)) {
    Salva.onPress = [this] {
        if (Store()) shell_.stack.ClosePage(*this);
    };
    Esci.escapes = true;
    Esci.onPress = [this] { Leave(); };
    BindKey("F1", Salva);
    BindKey("Esc", Esci);
    onClose = [this] { Leave(); };
}

void SettingsPage::Opening() {
    changed_ = false;
    SetTitle(shell_.TestoLingua("CAPTION", section_));
    Salva.SetText(shell_.TestoLingua("SALVA.0", "TASTI"));
    Esci.SetText(shell_.TestoLingua("ESCI.0", "TASTI"));
    Fill();
}

void SettingsPage::Watch(pages::Control& control) {
    control.onChange = [this] { changed_ = true; };
}

void SettingsPage::Leave() {
    if (!changed_) return shell_.stack.ClosePage(*this);
    MostraMessaggio(shell_, UsualTitle(shell_), shell_.TestoLingua("ERRORE_20", "ERRORI"), StyleQuestion,
                    [this](Answer answer) {
                        if (answer == Answer::Yes) shell_.stack.ClosePage(*this);
                    });
}

ConfSer::ConfSer(Shell& owner) : SettingsPage(owner, "ConfSer", "CONFSER") {
    for (pages::Combo* list : {&Seriali, &BaudRate, &Parita, &BitDati, &BitStop}) Watch(*list);
}

void ConfSer::Fill() {
    for (int i = 0; i < LabSer.Size(); ++i) {
        LabSer[i].SetText(shell_.TestoLingua("LABSER." + std::to_string(i), section_));
    }
    std::vector<std::string> ports;
    std::vector<std::string> remarks;
    for (int port = 1; port <= Ports; ++port) {
        ports.push_back("COM" + std::to_string(port));
        remarks.push_back(PortRemark(shell_, port));
    }
    const SerialTexts& serial = shell_.state.serial;
    Seriali.SetItems(ports);
    Seriali.SetDetails(remarks);
    Seriali.SetIndex(IndexOf(ports, serial.port));
    BaudRate.SetItems(Items(BaudRates));
    BaudRate.SetIndex(IndexOf(BaudRates, serial.baud));
    Parita.SetItems(ListTexts(shell_, "PARITA", static_cast<int>(Parities.size())));
    Parita.SetIndex(IndexOf(Parities, serial.parity));
    BitDati.SetItems(Items(DataBits));
    BitDati.SetIndex(IndexOf(DataBits, serial.dataBits));
    BitStop.SetItems(Items(StopBits));
    BitStop.SetIndex(IndexOf(StopBits, serial.stopBits));
}

bool ConfSer::Store() {
    struct Row {
        const char* key;
        const pages::Control* list;
    };
    const platform::Path file = shell_.FileInFolder("CONFIG.INI");
    platform::IniText text(shell_.host.files.Read(file).value_or(std::string()));
    for (const Row& row :
         {Row{"COM", &Seriali}, Row{"BAUD_RATE", &BaudRate}, Row{"BIT_DATI", &BitDati}, Row{"BIT_STOP", &BitStop}}) {
        // A list with nothing chosen keeps what the file says.
        if (row.list->Index() >= 0)
            text.Set("SERIALE", row.key, row.list->Items()[static_cast<std::size_t>(row.list->Index())]);
    }
    if (Parita.Index() >= 0) text.Set("SERIALE", "PARITA", Parities[static_cast<std::size_t>(Parita.Index())]);
    if (!shell_.host.files.Write(file, text.Content())) {
        shell_.Beep();
        MostraMessaggio(shell_, UsualTitle(shell_),
                        shell::Fill(shell_.TestoLingua("CARTELLA_PROTETTA", "AVVIO"), shell_.state.CartellaProg),
                        StyleInformation, {});
        return false;
    }
    LeggiSeriale(shell_);
    return !shell_.hooks.ApriPorta || shell_.hooks.ApriPorta() == 0;
}

SceltaLingua::SceltaLingua(Shell& owner) : SettingsPage(owner, "SceltaLingua", "SCELTALINGUA") {
    Watch(ListaLingue);
}

void SceltaLingua::Fill() {
    LabLingua.SetText(shell_.TestoLingua("LABLINGUA.0", section_));
    std::vector<std::string> names = shell_.host.files.List(shell_.options.folder, ".LNG");
    for (std::string& name : names) name.resize(name.rfind('.'));
    ListaLingue.SetItems(names);
    ListaLingue.SetIndex(IndexOf(names, shell_.state.Lingua));
}

bool SceltaLingua::Store() {
    if (ListaLingue.Index() < 0) return false;
    const bool written = WriteMarlo(shell_, "IMPOSTAZIONI", "Lingua",
                                    ListaLingue.Items()[static_cast<std::size_t>(ListaLingue.Index())]);
    if (!written) shell_.Beep();
    MostraMessaggio(shell_, UsualTitle(shell_),
                    written ? shell_.TestoLingua("SEGNALAZIONE_1", section_)
                            : shell::Fill(shell_.TestoLingua("CARTELLA_PROTETTA", "AVVIO"), shell_.state.CartellaProg),
                    StyleInformation, {});
    return written;
}

TipoComp::TipoComp(Shell& owner) : SettingsPage(owner, "TipoComp", "TIPOCOMP") {
    Watch(Velocita[0]);
    Watch(Velocita[1]);
}

void TipoComp::Fill() {
    for (int i = 0; i < Velocita.Size(); ++i) {
        Velocita[i].SetText(shell_.TestoLingua("VELOCITA." + std::to_string(i), section_));
        Velocita[i].SetSelected(shell_.state.TipoComputer == i);
    }
}

bool TipoComp::Store() {
    const int chosen = Velocita[1].Selected() ? 1 : 0;
    shell_.state.TipoComputer = chosen;
    WriteMarlo(shell_, "IMPOSTAZIONI", "Computer", std::to_string(chosen));
    return true;
}

Risoluz::Risoluz(Shell& owner) : SettingsPage(owner, "Risoluz", "RISOLUZ") {
    Watch(TipoRisol);
}

void Risoluz::Fill() {
    LabCana.SetText(shell_.TestoLingua("LABCANA.0", section_));
    TipoRisol.SetItems(ListTexts(shell_, "TIPORISOL", static_cast<int>(Resolutions.size())));
    TipoRisol.SetIndex(shell_.state.RisoluzionePiena == True ? 0 : 1);
}

bool Risoluz::Store() {
    if (TipoRisol.Index() >= 0) {
        WriteMarlo(shell_, "RISOLUZIONE", "Risoluzione", Resolutions.at(static_cast<std::size_t>(TipoRisol.Index())));
    }
    LeggiRisoluzione(shell_);
    for (const auto& look : shell_.hooks.resolutionChanged) look();
    return true;
}

Infor::Infor(Shell& owner) : Page("Infor"), shell_(owner) {
    OK.onPress = [this] { shell_.stack.ClosePage(*this); };
    BindKey("Esc", OK);
}

void Infor::Opening() {
    SetTitle(shell_.TestoLingua("CAPTION", "INFOR"));
    lblTitle.SetText(shell_.TestoLingua("TITLE.0", "INFOR"));
    lblVersion.SetText(Fill(shell_.TestoLingua("VERSION.0", "INFOR"), VersionText()));
    lblDescription.SetText(shell_.TestoLingua("DESCRIPTION.0", "INFOR"));
    OK.SetText(shell_.TestoLingua("OK.0", "TASTI"));
}

}  // namespace shell
