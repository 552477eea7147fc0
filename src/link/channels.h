#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace eculink {

inline constexpr int SignalChannels = 17;  // channels 0 to 16 of a frame
inline constexpr int AllChannels = 18;     // and the time axis of the charts
inline constexpr int Views = 2;            // view 0: engineering texts, view 1: raw texts
inline constexpr int EngineeringView = 0;
inline constexpr int RawView = 1;
inline constexpr std::size_t ValueWidth = 8;
inline constexpr std::size_t RawWidth = 4;

// The channels that the code calls by name.
enum Channel {
    Giri = 0,
    Lambda = 1,
    Tps = 2,
    Map = 3,
    P1 = 4,
    Temperatura = 5,
    Livello = 6,
    Step = 7,
    CStec = 8,
    Zone = 9,
    Pompata = 10,
    RiccoMagro = 11,
    StatoAA = 12,
    Commut = 13,
    Led = 14,
    Stored = 15,
    Macro = 16,
    Camp = 17
};

// The live record: an engineering text of 8 and a raw text of 4 characters a channel, right-aligned, and the count of
// frames taken in. The four status digits stand in characters 1 to 4 of channel 13.
struct Record {
    std::array<std::string, SignalChannels> Valore;
    std::array<std::string, SignalChannels> Grezzo;
    std::int32_t Progressivo = 0;
};

inline constexpr int HistoryPlaces = 621;  // what the chart shows, twice over

// The latest samples, those of calibration steps too: a ring, of which `position` is the newest place, -1 when there is
// none. A place whose count is 0 is empty.
struct History {
    std::vector<Record> samples{HistoryPlaces};
    int position = -1;
};

// One channel as instruments and charts show it; pairs are by view.
struct ChannelInfo {
    std::string Nome;                   // at most 20 characters
    int Grafico = -1;                   // number in the chart selection, -1: cannot be charted
    std::array<std::string, Views> UM;  // at most 6 characters
    std::array<std::int32_t, Views> Min{};
    std::array<std::int32_t, Views> Max{};
    std::array<std::int32_t, Views> MinScala{};
    std::array<std::int32_t, Views> MaxScala{};
    std::array<std::int32_t, Views> MinPrec{};
    std::array<std::int32_t, Views> MaxPrec{};
    std::array<std::optional<double>, Views> Minimo;  // running limits; nothing before the first numeric value
    std::array<std::optional<double>, Views> Massimo;
    std::array<int, Views> Passo{};
    std::array<int, Views> Griglia{};
    std::array<int, Views> Margine{};
    bool hasScale = false;
};

struct Link;

// Names, units and scales of all channels from the language; once, at the start of the program.
void CaricaCanali(Link& link);
// A new run: texts and counts empty, working scales as configured, running limits gone.
void AzzeraDati(Link& link);
// Second stage of a live frame: engineering texts, running limits, automatic scales, count, history. `valoreMAP` is the
// pressure field as a number before any conversion.
void AggiornaCanali(Link& link, double valoreMAP);
// The automatic scale of one channel and view from its running limits.
void NuovaScala(ChannelInfo& channel, int view);
// The text of a channel as an instrument shows it in that view, without any flag in front; without a view, in the one
// in force.
std::string InstrumentText(const Link& link, int channel, int view);
std::string InstrumentText(const Link& link, int channel);

// A text in a fixed field: right-aligned; one that is too long keeps its beginning.
std::string FixedText(std::string_view text, std::size_t width);

}  // namespace eculink
