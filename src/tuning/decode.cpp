#include <array>

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

// What the live picture needs to know of the sensors, as the conversions of the pages know it.
void TellLivePicture(Tuning& tuning) {
    eculink::State& link = tuning.memory.link.state;
    link.TipoSondaLambda = static_cast<int>(tuning.calibration.Sonda_Lambda[0].Letto);
    link.mapTable = tuning.CurrentContext().tabella;
}

// Limits while no programmed image gives any: constants and the figures of neighbours count, a cell gives the least and
// the largest figure that its width holds.
void SetWidestLimits(MemoriaTable& memoria, const Context& context) {
    constexpr std::uint32_t LargestByte = 0xFF;
    constexpr std::uint32_t LargestWord = 0xFFFF;
    SetLimits(
        memoria, [](int, int) { return std::uint32_t{0}; }, context);
    std::array<double, MemoriaCount> least{};
    for (std::size_t i = 0; i < memoria.size(); ++i) least[i] = memoria[i].Min;
    SetLimits(
        memoria, [](int, int bytes) { return bytes == 1 ? LargestByte : LargestWord; }, context);
    for (std::size_t i = 0; i < memoria.size(); ++i) memoria[i].Min = least[i];
}

bool HoldsProgrammedImage(const Tuning& tuning) {
    return !tuning.image.empty() && tuning.memory.link.shell.state.ImmagineProgrammata == True;
}

}  // namespace

void SetLimits(Tuning& tuning) {
    const Context context = tuning.CurrentContext();
    if (!HoldsProgrammedImage(tuning)) return SetWidestLimits(tuning.memoria, context);
    SetLimits(tuning.memoria, tuning.Cells(), context);
}

void FollowNeighbour(Tuning& tuning, std::size_t changed) {
    const Context context = tuning.CurrentContext();
    if (!HoldsProgrammedImage(tuning)) return SetWidestLimits(tuning.memoria, context);
    FollowNeighbour(tuning.memoria, changed, tuning.Cells(), context);
}

Tuning::Tuning(memory::Memory& owner) : memory(owner) {
    CostruisciMemoria(*this);
    memory.hooks.DecodificaImmagine = [this] { return DecodificaImmagine(*this); };
    memory.link.loss.ResetCalibration = [this] { ForgetImage(*this); };
    memory.link.shell.hooks.resolutionChanged.push_back([this] { SetLimits(*this); });
}

void CostruisciMemoria(Tuning& tuning) {
    CostruisciMemoria(tuning.memoria);
    CostruisciCalibrazione(tuning.calibration);
}

std::uint32_t ValoreCella(std::string_view image, const Record& record) {
    return memory::ByteCella(image, record.EE, record.NByte);
}

void ForgetImage(Tuning& tuning) {
    constexpr double NotAcquired = -1;
    tuning.image.clear();
    CostruisciMemoria(tuning);
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
    return WithSelectors(1);
}

Context Tuning::InitialContext() const {
    return WithSelectors(0);
}

Context Tuning::WithSelectors(std::size_t slot) const {
    const shell::State& state = memory.link.shell.state;
    Context context = ContextOf(calibration, state.RisoluzionePiena == True, memory.link.state.DatiLunghi == 1);
    TakeSelectors(context, memoria, Cells(), slot);
    return context;
}

bool DecodificaImmagine(Tuning& tuning) {
    shell::Shell& shell = tuning.memory.link.shell;
    // The inspector must never show what stood in an earlier unit.
    if (!shell.host.files.Remove(shell.FileInFolder(memory::InspectorFile))) return false;
    std::string image;
    if (!ReadArea(tuning, memory::ExternalFile, image) || !ReadArea(tuning, memory::InternalFile, image)) return false;
    tuning.image = std::move(image);
    CostruisciMemoria(tuning);
    TakeImageInfo(tuning);
    const bool programmed = shell.state.ImmagineProgrammata == True;
    const bool differentialProbes = shell.state.VarianteAVX == True || shell.state.VarianteQT == True;
    DecodeCalibration(tuning.calibration, tuning.Cells(), programmed, differentialProbes);
    SetLimits(tuning);
    TellLivePicture(tuning);
    shell.state.SenzaImmagine = False;
    return true;
}

}  // namespace tuning
