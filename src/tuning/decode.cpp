#include "link/link.h"
#include "memory/image.h"
#include "memory/image_cells.h"
#include "tuning/limits.h"
#include "tuning/tuning.h"

namespace tuning {

namespace {

using shell::False;
using shell::Flag;
using shell::True;

bool ReadArea(Tuning& tuning, const char* name, std::string& image) {
    shell::Shell& shell = tuning.memory.link.shell;
    const auto content = shell.host.files.Read(shell.FileInFolder(name));
    if (!content) return false;
    image += memory::AreaDigitsOf(*content);
    return true;
}

void TakeImageInfo(Tuning& tuning) {
    shell::Shell& shell = tuning.memory.link.shell;
    const memory::ImageInfo info = memory::ReadImageInfo(tuning.image, shell.host.clock.Now());
    shell.state.ImmagineProgrammata = Flag(info.programmed);
    tuning.memory.state.CodiceAcq = info.CodiceAcq;
    tuning.memory.state.DataProgrammazione = info.DataProgrammazione;
    tuning.memory.state.ScriviData = Flag(info.ScriviData);
}

// Kind of the pressure sensor by the code that the unit keeps of it.
constexpr int SensorCell = 3312;
int SensorType(std::uint32_t code) {
    constexpr std::uint32_t CodeType0 = 255;
    constexpr std::uint32_t CodeType1 = 17;
    if (code == CodeType0) return 0;
    return code == CodeType1 ? 1 : 2;
}

// What the live picture needs to know of the sensors.
void TellLivePicture(Tuning& tuning) {
    eculink::State& link = tuning.memory.link.state;
    link.TipoSondaLambda = static_cast<int>(tuning.calibration.Sonda_Lambda[0].Letto);
    link.mapTable = tuning.CurrentContext().tabella;
    // The kind of sensor is known of a blank unit too.
    link.mapTable.tipoSensoreMAP = SensorType(memory::ByteCella(tuning.image, SensorCell, 1));
}

}  // namespace

Tuning::Tuning(memory::Memory& owner) : memory(owner) {
    CostruisciMemoria(memoria);
    CostruisciCalibrazione(calibration);
    memory.hooks.DecodificaImmagine = [this] { return DecodificaImmagine(*this); };
    memory.link.loss.ResetCalibration = [this] { ForgetImage(*this); };
    memory.link.shell.hooks.resolutionChanged.push_back([this] { SetLimits(memoria, Cells(), CurrentContext()); });
}

void ForgetImage(Tuning& tuning) {
    constexpr double NotAcquired = -1;
    tuning.image.clear();
    CostruisciMemoria(tuning.memoria);
    for (std::size_t number = 0; number < CalibrationCount; ++number) {
        CalibrationRecord& record = RecordAt(tuning.calibration, number);
        record.Dato = record.Letto = NotAcquired;
    }
    eculink::State& link = tuning.memory.link.state;
    link.mapTable = {};
    link.TipoSondaLambda = 0;
    tuning.memory.state.CodiceAcq = memory::ImageInfo().CodiceAcq;
    tuning.memory.state.DataProgrammazione.clear();
    tuning.memory.state.ScriviData = False;
}

CellReader Tuning::Cells() const {
    return [this](int address, int bytes) { return memory::ByteCella(image, address, bytes); };
}

Context Tuning::CurrentContext() const {
    const shell::State& state = memory.link.shell.state;
    Context context = ContextOf(calibration, state.RisoluzionePiena == True, memory.link.state.DatiLunghi == 1);
    TakeSelectors(context, memoria, Cells());
    return context;
}

bool DecodificaImmagine(Tuning& tuning) {
    shell::Shell& shell = tuning.memory.link.shell;
    shell.host.files.Remove(shell.FileInFolder(memory::InspectorFile));
    std::string image;
    if (!ReadArea(tuning, memory::ExternalFile, image) || !ReadArea(tuning, memory::InternalFile, image)) return false;
    tuning.image = std::move(image);
    CostruisciMemoria(tuning.memoria);
    CostruisciCalibrazione(tuning.calibration);
    TakeImageInfo(tuning);
    const bool programmed = shell.state.ImmagineProgrammata == True;
    const bool differentialProbes = shell.state.VarianteAVX == True || shell.state.VarianteQT == True;
    DecodeCalibration(tuning.calibration, tuning.Cells(), programmed, differentialProbes);
    SetLimits(tuning.memoria, tuning.Cells(), tuning.CurrentContext());
    TellLivePicture(tuning);
    shell.state.SenzaImmagine = False;
    return true;
}

}  // namespace tuning
