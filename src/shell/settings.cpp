#include "shell/settings.h"

#include <array>

#include "link/frames/numbers.h"
#include "platform/ini_file.h"
#include "platform/text.h"
#include "shell/shell.h"

namespace shell {

namespace {

constexpr const char* Serial = "SERIALE";
constexpr const char* Charts = "GRAFICI";
constexpr const char* LanguageExtension = ".LNG";

struct SerialRow {
    const char* key;
    const char* readDefault;
    const char* writtenDefault;
    std::size_t width;  // the text is kept cut to it
    std::string SerialTexts::*text;
};

// The two defaults differ on purpose: only a missing file gives a set that works.
constexpr std::array<SerialRow, 5> SerialRows{{
    {"COM", "COM1", "COM1", 5, &SerialTexts::port},
    {"BAUD_RATE", "19200", "38400", 5, &SerialTexts::baud},
    {"PARITA", "N", "Nessuna", 7, &SerialTexts::parity},
    {"BIT_DATI", "8", "8", 5, &SerialTexts::dataBits},
    {"BIT_STOP", "1", "1", 5, &SerialTexts::stopBits},
}};

// Engine speed, throttle, lambda and second pressure are on the chart until the fitter chooses others.
constexpr std::array<platform::IniValue, 4> ChartDefaults{{
    {"Grafico_1", "0"},
    {"Grafico_2", "2"},
    {"Grafico_3", "1"},
    {"Grafico_4", "4"},
}};

// The order in which new keys are written.
constexpr auto ConfigOrder = std::to_array<platform::IniKey>({
    {Serial, "COM"},
    {Serial, "BAUD_RATE"},
    {Serial, "PARITA"},
    {Serial, "BIT_DATI"},
    {Serial, "BIT_STOP"},
});
constexpr auto MarloOrder = std::to_array<platform::IniKey>({
    {"IMPOSTAZIONI", "Lingua"},
    {"IMPOSTAZIONI", "Computer"},
    {"RISOLUZIONE", "Risoluzione"},
    {Charts, "Grafico_1"},
    {Charts, "Grafico_2"},
    {Charts, "Grafico_3"},
    {Charts, "Grafico_4"},
    {"SCHEMI", "Directory"},
});

platform::Path File(const Shell& shell, const char* name) {
    return shell.options.folder / name;
}

std::string Stem(const std::string& fileName) {
    return fileName.substr(0, fileName.rfind('.'));
}

}  // namespace

std::string ReadMarlo(Shell& shell, const char* section, const char* key, const char* otherwise) {
    return platform::GetPrivateProfileString(shell.host.files, section, key, otherwise, File(shell, MarloIni));
}

bool WriteMarlo(Shell& shell, const char* section, const char* key, const std::string& value) {
    return platform::WritePrivateProfileString(shell.host.files, section, key, value, File(shell, MarloIni),
                                               MarloOrder);
}

bool WriteSerial(Shell& shell, const std::vector<platform::IniValue>& values) {
    return platform::WritePrivateProfileStrings(shell.host.files, Serial, values, File(shell, ConfigIni), ConfigOrder);
}

bool MarloExists(Shell& shell) {
    return shell.host.files.Exists(File(shell, MarloIni));
}

void LeggiLingua(Shell& shell) {
    State& state = shell.state;
    state.Lingua = ReadMarlo(shell, "IMPOSTAZIONI", "Lingua", "INGLESE");
    // A name that is no plain file name could reach outside the folder.
    const bool plain = state.Lingua.find_first_of("/\\:") == std::string::npos;
    if (!plain || !shell.host.files.Exists(shell.FileInFolder(state.Lingua + LanguageExtension))) {
        const auto names = shell.host.files.List(shell.options.folder, LanguageExtension);
        state.Lingua = names.empty() ? "ITALIANO" : Stem(names.front());
    }
    const std::string computer = ReadMarlo(shell, "IMPOSTAZIONI", "Computer", "1");
    const bool legal = computer == "0" || computer == "1";
    state.TipoComputer = computer == "0" ? 0 : 1;
    if (!legal) WriteMarlo(shell, "IMPOSTAZIONI", "Computer", "1");
}

void LeggiSeriale(Shell& shell) {
    const platform::Path file = File(shell, ConfigIni);
    const bool missing = !shell.host.files.Exists(file);
    if (missing) {
        std::vector<platform::IniValue> values;
        for (const SerialRow& row : SerialRows) values.push_back({row.key, row.writtenDefault});
        WriteSerial(shell, values);
    }
    for (const SerialRow& row : SerialRows) {
        // In a folder that cannot be written the working set holds all the same.
        const char* otherwise = missing ? row.writtenDefault : row.readDefault;
        const std::string value = platform::GetPrivateProfileString(shell.host.files, Serial, row.key, otherwise, file);
        shell.state.serial.*row.text = value.substr(0, row.width);
    }
}

void LeggiRisoluzione(Shell& shell) {
    shell.state.RisoluzionePiena = shell.state.VarianteAVX;
    const std::string value = ReadMarlo(shell, "RISOLUZIONE", "Risoluzione", "1");
    if (frames::IsNumeric(value)) shell.state.RisoluzionePiena = Flag(frames::ValoreNum(value) == 0);
}

void LeggiGrafici(Shell& shell) {
    constexpr double LastChannel = 17;
    const bool missing = !shell.host.files.Exists(File(shell, MarloIni));
    if (missing) {
        platform::WritePrivateProfileStrings(shell.host.files, Charts, {ChartDefaults.begin(), ChartDefaults.end()},
                                             File(shell, MarloIni), MarloOrder);
        WriteMarlo(shell, "SCHEMI", "Directory", "");
    }
    ChartSettings& charts = shell.state.charts;
    for (std::size_t i = 0; i < ChartDefaults.size(); ++i) {
        const platform::IniValue& row = ChartDefaults[i];
        // In a folder that cannot be written the usual four hold all the same.
        const std::string text = ReadMarlo(shell, Charts, row.key.data(), missing ? row.value.data() : "-1");
        const double channel = frames::IsNumeric(text) ? frames::ValoreNum(text) : ChartSettings::Empty;
        const bool legal = channel >= 0 && channel <= LastChannel;
        charts.Grafico[i] = legal ? static_cast<int>(channel) : ChartSettings::Empty;
    }
    charts.Directory = ReadMarlo(shell, "SCHEMI", "Directory", "");
}

std::string DeviceOfPort(Shell& shell, int port) {
    const auto given = shell.options.ports.find(port);
    if (given != shell.options.ports.end()) return given->second;
    const std::string name = "COM" + std::to_string(port);
#ifdef _WIN32
    const std::string own = name;
#else
    const std::string own = "/dev/ttyS" + std::to_string(port - 1);
#endif
    return platform::ToUtf8(ReadMarlo(shell, "PORTE", name.c_str(), own.c_str()));
}

std::string ParityWord(const Shell& shell) {
    const std::string& parity = shell.state.serial.parity;
    for (std::size_t i = 0; i < Parities.size(); ++i) {
        if (platform::EqualsIgnoringCase(Parities[i], platform::Trim(parity)))
            return shell.TestoLingua("TIPO." + std::to_string(i), "PARITA");
    }
    return parity;
}

int PortNumber(const Shell& shell) {
    constexpr std::size_t Prefix = 3;  // "COM"
    constexpr double Highest = 32767;
    const std::string& port = shell.state.serial.port;
    const double number =
        frames::ValoreNum(port.size() > Prefix ? std::string_view(port).substr(Prefix) : std::string_view());
    return number >= 1 && number <= Highest ? static_cast<int>(number) : 0;
}

}  // namespace shell
