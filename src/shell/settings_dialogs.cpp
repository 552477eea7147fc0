#include "shell/settings_dialogs.h"

#include <algorithm>
#include <array>

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
constexpr std::array<const char*, 2> Resolutions{"0", "1"};  // full, reduced

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
    control.onChange = [this] {
        changed_ = true;
        Salva.Enable(true);
    };
}

void SettingsPage::Leave() {
    if (!changed_) return shell_.stack.ClosePage(*this);
    Ask(shell_, shell_.TestoLingua("ERRORE_20", "ERRORI"), [this](Answer answer) {
        if (answer == Answer::Yes) shell_.stack.ClosePage(*this);
    });
}

void SettingsPage::PutButtonsLast() {
    PutLast(Salva);
    PutLast(Esci);
}

bool SettingsPage::TellUnwritable(const char* file) {
    const std::string text =
        shell_.folderTrouble == FolderTrouble::Unwritable
            ? shell::Fill(shell_.TestoLingua("CARTELLA_PROTETTA", "AVVIO"), shell_.state.CartellaProg)
            : shell_.TestoLingua("ERRORE_10", "ERRORI") + "\r\n" +
                  platform::FromUtf8(shell_.FileInFolder(file).string());
    Tell(shell_, text);
    return false;
}

ConfSer::ConfSer(Shell& owner) : SettingsPage(owner, "ConfSer", "CONFSER") {
    for (pages::Combo* list : {&Seriali, &BaudRate, &Parita, &BitDati, &BitStop}) Watch(*list);
    PutButtonsLast();
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
        pages::Control& list;
        std::vector<std::string> texts;  // as the file holds them
    };
    const std::array<Row, 5> rows{{
        {"COM", Seriali, Seriali.Items()},
        {"BAUD_RATE", BaudRate, BaudRate.Items()},
        {"PARITA", Parita, Items(Parities)},
        {"BIT_DATI", BitDati, BitDati.Items()},
        {"BIT_STOP", BitStop, BitStop.Items()},
    }};
    std::vector<platform::IniValue> values;
    for (const Row& row : rows) {
        // A list with nothing chosen keeps what the file says.
        if (row.list.Index() < 0) continue;
        values.push_back({row.key, row.texts.at(static_cast<std::size_t>(row.list.Index()))});
    }
    if (!WriteSerial(shell_, values)) return TellUnwritable(ConfigIni);
    Stored();
    LeggiSeriale(shell_);
    return !shell_.hooks.ApriPorta || shell_.hooks.ApriPorta() == 0;
}

SceltaLingua::SceltaLingua(Shell& owner) : SettingsPage(owner, "SceltaLingua", "SCELTALINGUA") {
    Watch(ListaLingue);
    PutButtonsLast();
}

void SceltaLingua::Fill() {
    LabLingua.SetText(shell_.TestoLingua("LABLINGUA.0", section_));
    std::vector<std::string> names = shell_.host.files.List(shell_.options.folder, ".LNG");
    for (std::string& name : names) name.resize(name.rfind('.'));
    ListaLingue.SetItems(names);
    ListaLingue.SetIndex(IndexOf(names, shell_.state.Lingua));
    Salva.Enable(ListaLingue.Index() >= 0, pages::Reason::NothingChosen);
}

bool SceltaLingua::Store() {
    const std::string& chosen = ListaLingue.Items().at(static_cast<std::size_t>(ListaLingue.Index()));
    if (!WriteMarlo(shell_, "IMPOSTAZIONI", "Lingua", chosen)) return TellUnwritable(MarloIni);
    Tell(shell_, shell_.TestoLingua("SEGNALAZIONE_1", section_));
    return true;
}

TipoComp::TipoComp(Shell& owner) : SettingsPage(owner, "TipoComp", "TIPOCOMP") {
    Watch(Velocita[0]);
    Watch(Velocita[1]);
    PutButtonsLast();
}

void TipoComp::Fill() {
    for (int i = 0; i < Velocita.Size(); ++i) {
        Velocita[i].SetText(shell_.TestoLingua("VELOCITA." + std::to_string(i), section_));
        Velocita[i].SetSelected(shell_.state.TipoComputer == i);
    }
}

bool TipoComp::Store() {
    const int chosen = Velocita[1].Selected() ? 1 : 0;
    if (!WriteMarlo(shell_, "IMPOSTAZIONI", "Computer", std::to_string(chosen))) return TellUnwritable(MarloIni);
    shell_.state.TipoComputer = chosen;
    return true;
}

Risoluz::Risoluz(Shell& owner) : SettingsPage(owner, "Risoluz", "RISOLUZ") {
    Watch(TipoRisol);
    PutButtonsLast();
}

void Risoluz::Fill() {
    LabCana.SetText(shell_.TestoLingua("LABCANA.0", section_));
    TipoRisol.SetItems(ListTexts(shell_, "TIPORISOL", static_cast<int>(Resolutions.size())));
    TipoRisol.SetIndex(shell_.state.RisoluzionePiena == True ? 0 : 1);
}

bool Risoluz::Store() {
    const char* chosen = Resolutions.at(static_cast<std::size_t>(TipoRisol.Index()));
    if (!WriteMarlo(shell_, "RISOLUZIONE", "Risoluzione", chosen)) return TellUnwritable(MarloIni);
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
