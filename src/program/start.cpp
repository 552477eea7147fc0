#include "program/start.h"

#include <array>
#include <locale>
#include <stdexcept>

#include "link/reception.h"
#include "program/folder.h"
#include "program/program.h"
#include "shell/settings.h"

namespace program {

namespace {

using shell::True;

// One step of the start; false stops it.
struct Step {
    const char* name;
    bool (*run)(Program&);
};

constexpr std::array<const char*, 3> WorkFiles{"FILEEEPROM.DAT", "FILEEEINT.APP", "FILEEEEXT.APP"};

// A step that comes with a later version keeps its place in the order.
bool Later(Program&) {
    return true;
}

bool ShowMainWindow(Program& program) {
    program.shell.stack.OpenPage(program.shell.main, false);
    return true;
}

bool EnterFolder(Program& program) {
    PrepareFolder(program.shell);
    program.shell.host.files.MakeCurrent(program.shell.options.folder);
    return true;
}

bool ReadLanguageAndComputer(Program& program) {
    shell::LeggiLingua(program.shell);
    return true;
}

bool RefuseSecondInstance(Program& program) {
    shell::Shell& shell = program.shell;
    const platform::Instance::Claim claim = shell.host.instance.TryClaim(shell.options.folder);
    if (claim == platform::Instance::Claim::Unwritable) shell.folderTrouble = shell::FolderTrouble::Unwritable;
    if (claim != platform::Instance::Claim::Taken) return true;
    shell.language.Load(shell.host.files, shell.FileInFolder(shell.state.Lingua + ".LNG"));
    shell.Beep();
    shell.systemMessage.Show(shell::UsualTitle(shell), shell.TestoLingua("ERRORE_15", "ERRORI"),
                             [&shell] { shell.End(1); });
    return false;
}

// A memory image never survives a restart.
bool DeleteWorkFiles(Program& program) {
    for (const char* name : WorkFiles) program.shell.host.files.Remove(program.shell.FileInFolder(name));
    return true;
}

bool LoadTexts(Program& program) {
    shell::Shell& shell = program.shell;
    CompleteFolder(shell);
    LoadLanguage(shell);
    shell::LoadMainTexts(shell);
    TellFolderTrouble(shell);
    return true;
}

bool ReadResolution(Program& program) {
    shell::LeggiRisoluzione(program.shell);
    return true;
}

// The third character of 10.4 as this system writes it. The system's own locale is asked, not that of the process: a
// front end may or may not have taken it over.
char DecimalSeparator() {
    try {
        return std::use_facet<std::numpunct<char>>(std::locale("")).decimal_point();
    } catch (const std::runtime_error&) {
        return '.';  // the environment names a locale that is not installed
    }
}

bool InitialiseState(Program& program) {
    program.shell.state.SepDecimale = DecimalSeparator();
    eculink::CaricaCanali(program.link);
    eculink::AzzeraDati(program.link);
    program.link.state.BufferRx.clear();
    program.shell.state.charts = {};
    // Places and origin of the chart, and whatever waits to be written to a recording, begin afresh here too.
    program.shell.state.FileRegistrazione.clear();
    if (program.link.loss.CloseRecording) program.link.loss.CloseRecording();
    shell::AbilitaComandi(program.shell, True);
    return true;
}

bool ResetCalibration(Program& program) {
    tuning::ForgetImage(program.tuning);
    return true;
}

bool ReadSerialSettings(Program& program) {
    shell::LeggiSeriale(program.shell);
    return true;
}

// A failure is told and does not stop the start.
bool OpenSerialPort(Program& program) {
    eculink::ApriPorta(program.link);
    return true;
}

bool ReadChartSettings(Program& program) {
    shell::LeggiGrafici(program.shell);
    return true;
}

bool StartProcessing(Program& program) {
    program.link.timers.Elaborazione->SetEnabled(true);
    program.link.timers.Checks->SetEnabled(true);
    return true;
}

bool ShowInstruments(Program& program) {
    program.shell.stack.OpenPage(program.link.grafici, false);
    return true;
}

bool SetRecordingPanel(Program& program) {
    program.shell.main.VisReg.SetText(program.shell.TestoLingua("STATOPROG.0", "MARLOVENT"));
    return true;
}

constexpr std::array<Step, 16> Steps{{
    {"main window", ShowMainWindow},
    {"program directory", EnterFolder},
    {"language and kind of computer", ReadLanguageAndComputer},
    {"second instance", RefuseSecondInstance},
    {"work files", DeleteWorkFiles},
    {"language texts", LoadTexts},
    {"archives", Later},
    {"resolution", ReadResolution},
    {"channels and state", InitialiseState},
    {"calibration tables", ResetCalibration},
    {"serial settings", ReadSerialSettings},
    {"serial port", OpenSerialPort},
    {"chart settings", ReadChartSettings},
    {"processing", StartProcessing},
    {"instrument page", ShowInstruments},
    {"recording panel", SetRecordingPanel},
}};

}  // namespace

bool Start(Program& program) {
    for (const Step& step : Steps) {
        if (!step.run(program)) return false;
    }
    return true;
}

}  // namespace program
