#include "program/variables.h"

#include <algorithm>
#include <array>

#include "program/program.h"

namespace program {

namespace {

using Value = VariableValue;

template <auto member>
Value OfShell(const Program& program) {
    return program.shell.state.*member;
}

template <auto member>
Value OfLink(const Program& program) {
    return program.link.state.*member;
}

template <auto member>
Value OfMemory(const Program& program) {
    return program.memory.state.*member;
}

template <auto member>
const platform::Timer& OfTimers(const Program& program) {
    return *(program.link.timers.*member);
}

using Shell = shell::State;
using Link = eculink::State;
using Memory = memory::State;
using Timers = eculink::LinkTimers;

constexpr auto Rows = std::to_array<Variable>({
    {"StatoCmd", OfLink<&Link::StatoCmd>},
    {"FaseAcq", OfShell<&Shell::FaseAcq>},
    {"SottoFase", OfShell<&Shell::SottoFase>},
    {"CentralinaDaRiconoscere", OfLink<&Link::CentralinaDaRiconoscere>},
    {"SenzaImmagine", OfShell<&Shell::SenzaImmagine>},
    {"ImmagineProgrammata", OfShell<&Shell::ImmagineProgrammata>},
    {"FlussoAttivo", OfLink<&Link::FlussoAttivo>},
    {"VistaDati", OfLink<&Link::VistaDati>},
    {"DatiLunghi", OfLink<&Link::DatiLunghi>},
    {"DatoNuovo", OfLink<&Link::DatoNuovo>},
    {"PaginaStrumenti", OfLink<&Link::PaginaStrumenti>},
    {"Progressivo", [](const Program& p) -> Value { return p.link.RecCanali.Progressivo; }},
    {"TipoComputer", OfShell<&Shell::TipoComputer>},
    {"RisoluzionePiena", OfShell<&Shell::RisoluzionePiena>},
    {"TipoSondaLambda", OfLink<&Link::TipoSondaLambda>},
    {"TipoSensoreMAP", [](const Program& p) -> Value { return p.link.state.mapTable.tipoSensoreMAP; }},
    {"StatoRx", OfLink<&Link::StatoRx>},
    {"ContaRx", OfLink<&Link::ContaRx>},
    {"ContaX", OfLink<&Link::ContaX>},
    {"IndirizzoCorrente", OfLink<&Link::IndirizzoCorrente>},
    {"ByteRestanti", OfLink<&Link::ByteRestanti>},
    {"ImmagineEE", OfMemory<&Memory::ImmagineEE>},
    {"VersioneECU", OfLink<&Link::VersioneECU>},
    {"FirmwareVecchio", OfShell<&Shell::FirmwareVecchio>},
    {"CodiceAcq", OfMemory<&Memory::CodiceAcq>},
    {"DataProgrammazione", OfMemory<&Memory::DataProgrammazione>},
    {"ScriviData", OfMemory<&Memory::ScriviData>},
    {"FileRegistrazione", OfShell<&Shell::FileRegistrazione>},
    {"PaginaMessaP", OfShell<&Shell::PaginaMessaP>},
    {"InChiusura", OfShell<&Shell::InChiusura>},
    {"VarianteQT", OfShell<&Shell::VarianteQT>},
    {"VarianteAVX", OfShell<&Shell::VarianteAVX>},
    {"SepDecimale", [](const Program& p) -> Value { return static_cast<unsigned char>(p.shell.state.SepDecimale); }},
    {"Lingua", OfShell<&Shell::Lingua>},
    {"CartellaProg", OfShell<&Shell::CartellaProg>},
    {"BufferRx", OfLink<&Link::BufferRx>},
    {"ComandoTx", OfLink<&Link::ComandoTx>},
    {"pointer",
     [](const Program& p) -> Value {
         return std::string(p.shell.state.pointer == shell::Pointer::Wait ? "wait" : "normal");
     }},
    {"beeps", OfShell<&Shell::beeps>},
});

constexpr auto TimerRows = std::to_array<NamedTimer>({
    {"Elaborazione", OfTimers<&Timers::Elaborazione>},
    {"TimeOutComandi", OfTimers<&Timers::TimeOutComandi>},
    {"TimeOutDati", OfTimers<&Timers::TimeOutDati>},
    {"Lampeggio", OfTimers<&Timers::Lampeggio>},
    {"LampeggioC", OfTimers<&Timers::LampeggioC>},
    {"Checks", OfTimers<&Timers::Checks>},
    {"Reopening", OfTimers<&Timers::Reopening>},
    {"TVis", [](const Program& p) -> const platform::Timer& { return *p.tuning.messaL1.TVis; }},
});

}  // namespace

std::span<const Variable> Variables() {
    return Rows;
}

const Variable* FindVariable(std::string_view name) {
    const auto found = std::find_if(Rows.begin(), Rows.end(), [name](const Variable& row) { return row.name == name; });
    return found == Rows.end() ? nullptr : &*found;
}

std::span<const NamedTimer> NamedTimers() {
    return TimerRows;
}

}  // namespace program
