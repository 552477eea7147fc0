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

constexpr std::size_t AreaDigits = std::size_t{memory::AreaLines} * memory::LineDigits;

// One area of the image, filled with erased bytes where the file ends.
bool ReadArea(Tuning& tuning, const char* name, std::string& image) {
    shell::Shell& shell = tuning.memory.link.shell;
    auto area = memory::LeggiImmagine(shell.host.files, shell.FileInFolder(name));
    if (!area) return false;
    area->resize(AreaDigits, 'F');
    image += *area;
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

// What the live picture needs to know of the sensors.
void TellLivePicture(Tuning& tuning) {
    eculink::State& link = tuning.memory.link.state;
    link.TipoSondaLambda = static_cast<int>(tuning.calibration.Sonda_Lambda[0].Letto);
    link.mapTable = tuning.CurrentContext().tabella;
}

}  // namespace

Tuning::Tuning(memory::Memory& owner) : memory(owner) {
    CostruisciMemoria(memoria);
    CostruisciCalibrazione(calibration);
    memory.hooks.DecodificaImmagine = [this] { return DecodificaImmagine(*this); };
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
