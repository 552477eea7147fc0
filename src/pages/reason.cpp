#include "pages/reason.h"

#include <array>

namespace pages {

namespace {

struct Row {
    Reason reason;
    std::string_view key;
};

// texts of MOTIVI
constexpr std::array<Row, 26> Keys{{
    {Reason::NoUnit, "NESSUNA_CENTRALINA"},
    {Reason::Transaction, "TRANSAZIONE"},
    {Reason::Calibration, "TARATURA"},
    {Reason::Recording, "REGISTRAZIONE"},
    {Reason::NoRecording, "NESSUNA_REGISTRAZIONE"},
    {Reason::NothingChosen, "NIENTE_SCELTO"},
    {Reason::Unchanged, "NON_MODIFICATO"},
    {Reason::NotAvailable, "NON_DISPONIBILE"},
    {Reason::PageDisabled, "PAGINA_DISABILITATA"},
    {Reason::PageCovered, "PAGINA_COPERTA"},
    {Reason::Hidden, "NASCOSTO"},
    {Reason::Locked, "BLOCCATO"},
    {Reason::LongOperation, "OPERAZIONE"},
    {Reason::ViewInForce, "VISTA_ATTIVA"},
    {Reason::FixedSpeed, "VELOCITA_FISSA"},
    {Reason::NoSensor, "NESSUN_SENSORE"},
    {Reason::ReadingFailed, "LETTURA_FALLITA"},
    {Reason::BlankUnit, "CENTRALINA_VUOTA"},
    {Reason::Closed, "CHIUSA"},
    {Reason::WrongKind, "ALTRO_COMANDO"},
    {Reason::NoSuchButton, "NESSUN_PULSANTE"},
    {Reason::EmptyChart, "GRAFICO_VUOTO"},
    {Reason::NoSuchEntry, "INDICE"},
    {Reason::KeyDoesNothing, "TASTO"},
    {Reason::OldProgram, "FIRMWARE_VECCHIO"},
    {Reason::ValueRefused, "VALORE_RIFIUTATO"},
}};

}  // namespace

std::string_view ReasonKey(Reason reason) {
    for (const Row& row : Keys) {
        if (row.reason == reason) return row.key;
    }
    return {};
}

}  // namespace pages
