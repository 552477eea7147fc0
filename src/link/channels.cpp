#include "link/channels.h"

#include <algorithm>

#include "link/frames/numbers.h"
#include "link/link.h"

namespace eculink {

namespace {

using frames::Format0;
using frames::IsNumeric;
using frames::ValoreNum;

constexpr std::size_t NameWidth = 20;
constexpr std::size_t UnitWidth = 6;
constexpr double MillivoltsPerCount = 4.88;
constexpr std::string_view NoZone = "--------";

struct ChannelRow {
    int channel;
    const char* key;
    int chart;
    std::int32_t max0, max1;  // both scales begin at 0
    int step0, step1;
    int grid0, grid1;
    int margin;
};

// Full scales, rounding units, grid divisions and margins of the charts; converter counts end at 1024.
constexpr std::array<ChannelRow, 17> Rows{{
    {Giri, "GIRI", 0, 8000, 8000, 10, 10, 10, 10, 2},
    {Lambda, "LAMBDA", 1, 1000, 1024, 10, 16, 10, 4, 2},
    {Tps, "TPS", 2, 5000, 1024, 10, 16, 10, 4, 2},
    {Map, "MAP", 3, 5000, 1000, 10, 10, 10, 10, 2},
    {P1, "P1", 4, 1000, 1024, 10, 16, 10, 4, 2},
    {Temperatura, "TEMPERATURA", 5, 5000, 1024, 10, 16, 10, 4, 2},
    {Livello, "LIVELLO", 6, 5000, 1024, 10, 16, 10, 4, 2},
    {Step, "STEP", 7, 255, 255, 17, 17, 3, 3, 2},
    {CStec, "CSTEC", -1, 255, 255, 17, 17, 3, 3, 2},
    {Zone, "ZONE", -1, 100, 255, 10, 17, 0, 3, 2},
    {Pompata, "POMPATA", -1, 100, 255, 10, 17, 0, 3, 2},
    {RiccoMagro, "RICCOMAGRO", -1, 100, 255, 10, 17, 0, 3, 2},
    {StatoAA, "STATOAA", -1, 255, 255, 17, 17, 3, 3, 2},
    {Commut, "COMMUT", -1, 100, 255, 10, 17, 0, 3, 2},
    {Led, "LED", -1, 100, 255, 10, 17, 0, 3, 2},
    {Macro, "MACRO", 8, 100, 255, 10, 17, 0, 3, 2},
    {Camp, "CAMP", -1, 300, 300, 6, 6, 10, 10, 1},
}};

struct Keys {
    std::string label;
    std::string section = "CANALI";
    std::string unit0;
    std::string unit1;
};

// Label and units of a channel; the diesel build words the throttle differently and shows it in place of the pressure.
Keys KeysOf(const ChannelRow& row, bool diesel) {
    const std::string label = row.key;
    Keys keys{label, "CANALI", "UM" + label + "_0", "UM" + label + "_1"};
    if (diesel && row.channel == Tps) keys.section = "CANALI_QT";
    if (diesel && row.channel == Map) {
        keys.label = "TPS";
        keys.unit1 = "UMMAP_2";
    }
    return keys;
}

bool HasLimits(int channel) {
    return channel != Commut && channel != Stored && channel != Camp;
}

void Widen(ChannelInfo& channel, int view, const std::string& text) {
    if (!IsNumeric(text)) return;
    const auto v = static_cast<std::size_t>(view);
    const double value = ValoreNum(text);
    channel.Minimo[v] = std::min(channel.Minimo[v].value_or(value), value);
    channel.Massimo[v] = std::max(channel.Massimo[v].value_or(value), value);
    if (value < channel.MinScala[v] || value > channel.MaxScala[v]) NuovaScala(channel, view);
}

std::string Engineering(double value) {
    return FixedText(Format0(value), ValueWidth);
}

// The signals that are numbers; the rest are flags and words.
void ConvertSignal(Record& record, int channel, double valoreMAP) {
    const auto c = static_cast<std::size_t>(channel);
    if (!IsNumeric(record.Grezzo[c])) {
        record.Valore[c].assign(ValueWidth, '*');
        record.Grezzo[c].assign(RawWidth, '*');
        return;
    }
    const double raw = ValoreNum(record.Grezzo[c]);
    if (channel != Map) record.Grezzo[c] = FixedText(Format0(raw), RawWidth);
    switch (channel) {
        case Lambda:
            record.Valore[c] = Engineering(static_cast<double>(static_cast<float>(raw) * 5000.0F / 1023.0F));
            break;
        case Tps:
        case Livello:
            record.Valore[c] = Engineering(raw * MillivoltsPerCount);
            break;
        case Map:
            record.Valore[c] = Engineering(valoreMAP * MillivoltsPerCount);
            break;
        default:
            record.Valore[c] = FixedText(record.Grezzo[c], ValueWidth);
    }
}

// Kinds of pressure sensor whose second reading has a known line.
constexpr int SensorType0 = 0;
constexpr int SensorType1 = 1;

std::string SecondPressure(const Link& link, double raw) {
    const std::string& map = link.RecCanali.Grezzo[Map];
    if (link.state.mapTable.tipoSensoreMAP == SensorType0 && IsNumeric(map)) {
        return FixedText(Format0(raw * 483 / 100 + ValoreNum(map) - 565), RawWidth);
    }
    if (link.state.mapTable.tipoSensoreMAP == SensorType1)
        return FixedText(Format0((raw - 41) * 4444 / 1023), RawWidth);
    return std::string(RawWidth, '*');
}

void ConvertSecondPressure(Link& link) {
    Record& record = link.RecCanali;
    if (!IsNumeric(record.Grezzo[P1])) {
        record.Valore[P1].assign(ValueWidth, '*');
        return;
    }
    const double raw = ValoreNum(record.Grezzo[P1]);
    record.Valore[P1] = Engineering(raw * MillivoltsPerCount);
    if (link.shell.state.FaseAcq == shell::NoPhase) record.Grezzo[P1] = SecondPressure(link, raw);
}

// The zone of the map by its digit; the diesel build has no third one.
std::string ZoneName(const Link& link, char digit) {
    if (digit < '1' || digit > '6') return std::string(NoZone);
    const bool diesel = link.shell.state.VarianteQT == shell::True;
    const char zone = digit == '3' && diesel ? '2' : digit;
    return link.shell.TestoLingua(std::string("ZONA_") + zone, "ZONE");
}

std::string PumpName(const Link& link, char digit) {
    if (digit == '0') return {};
    return digit == '1' ? link.shell.TestoLingua("ZONA_7", "ZONE") : std::string(NoZone);
}

void ConvertWords(Link& link) {
    Record& record = link.RecCanali;
    for (const int channel : {CStec, Zone, RiccoMagro, StatoAA, Stored}) {
        record.Valore[static_cast<std::size_t>(channel)] =
            FixedText(record.Grezzo[static_cast<std::size_t>(channel)], ValueWidth);
    }
    record.Grezzo[Macro] = FixedText(record.Grezzo[Macro].substr(RawWidth - 1), RawWidth);
    record.Valore[Macro] = FixedText(ZoneName(link, record.Grezzo[Macro].back()), ValueWidth);
    record.Grezzo[Pompata] = FixedText(record.Grezzo[Pompata].substr(RawWidth - 1), RawWidth);
    record.Valore[Pompata] = FixedText(PumpName(link, record.Grezzo[Pompata].back()), ValueWidth);
}

void Remember(History& history, const Record& sample) {
    history.position = (history.position + 1) % HistoryPlaces;
    history.samples[static_cast<std::size_t>(history.position)] = sample;
}

}  // namespace

std::string FixedText(std::string_view text, std::size_t width) {
    return frames::RightAlign(text.substr(0, width), width);
}

void CaricaCanali(Link& link) {
    const bool diesel = link.shell.state.VarianteQT == shell::True;
    for (ChannelInfo& channel : link.DescrCanale) channel = ChannelInfo{};
    for (const ChannelRow& row : Rows) {
        ChannelInfo& channel = link.DescrCanale[static_cast<std::size_t>(row.channel)];
        const Keys keys = KeysOf(row, diesel);
        channel.Nome = link.shell.TestoLingua(keys.label, keys.section).substr(0, NameWidth);
        channel.UM = {link.shell.TestoLingua(keys.unit0, "CANALI").substr(0, UnitWidth),
                      link.shell.TestoLingua(keys.unit1, "CANALI").substr(0, UnitWidth)};
        channel.Grafico = row.chart;
        channel.Max = {row.max0, row.max1};
        channel.Passo = {row.step0, row.step1};
        channel.Griglia = {row.grid0, row.grid1};
        channel.Margine = {row.margin, row.margin};
        channel.hasScale = true;
    }
}

void AzzeraDati(Link& link) {
    link.RecCanali.Progressivo = 0;
    for (std::string& text : link.RecCanali.Valore) text.assign(ValueWidth, ' ');
    for (std::string& text : link.RecCanali.Grezzo) text.assign(RawWidth, ' ');
    for (ChannelInfo& channel : link.DescrCanale) {
        channel.MinScala = channel.MinPrec = channel.Min;
        channel.MaxScala = channel.MaxPrec = channel.Max;
        channel.Minimo = {};
        channel.Massimo = {};
    }
    link.history.position = -1;
    for (Record& sample : link.history.samples) sample.Progressivo = 0;
    link.state.refresh = true;
}

void AggiornaCanali(Link& link, double valoreMAP) {
    Record& record = link.RecCanali;
    for (const int channel : {Giri, Lambda, Tps, Map, Temperatura, Livello, Step})
        ConvertSignal(record, channel, valoreMAP);
    ConvertSecondPressure(link);
    ConvertWords(link);
    for (int channel = 0; channel < SignalChannels; ++channel) {
        if (!HasLimits(channel)) continue;
        const auto c = static_cast<std::size_t>(channel);
        Widen(link.DescrCanale[c], EngineeringView, record.Valore[c]);
        Widen(link.DescrCanale[c], RawView, record.Grezzo[c]);
    }
    if (record.Progressivo < INT32_MAX) ++record.Progressivo;
    Remember(link.history, record);
}

void NuovaScala(ChannelInfo& channel, int view) {
    const auto v = static_cast<std::size_t>(view);
    if (channel.Passo[v] <= 0 || !channel.Minimo[v] || !channel.Massimo[v]) return;
    constexpr double Widest = 1e9;  // scales are whole numbers of 32 bits
    const double low = std::clamp(*channel.Minimo[v], -Widest, Widest);
    const double high = std::clamp(*channel.Massimo[v], -Widest, Widest);
    const double margin = channel.Margine[v] * (high - low) / 100;
    const double steps = frames::RoundHalfEven((high - low + 2 * margin) / channel.Passo[v] + 1);
    const double span = std::min(channel.Passo[v] * steps, 2 * Widest);
    channel.MinPrec[v] = channel.MinScala[v];
    channel.MaxPrec[v] = channel.MaxScala[v];
    channel.MaxScala[v] = static_cast<std::int32_t>((low + high) / 2 + span / 2 + 1);
    channel.MinScala[v] = static_cast<std::int32_t>(std::max(channel.MaxScala[v] - span, -2 * Widest));
}

namespace {

// The range of raw counts that the reduced display shows as 0 to 255; 0: shown as they are.
double ReducedRange(const Link& link, int channel) {
    constexpr double FullCounts = 1023;
    constexpr double WideBandCounts = 470;
    if (channel == Tps || channel == Livello) return FullCounts;
    if (channel != Lambda) return 0;
    if (link.state.TipoSondaLambda == 2) return FullCounts;
    return link.state.TipoSondaLambda == 1 ? WideBandCounts : 0;
}

}  // namespace

std::string InstrumentText(const Link& link, int channel) {
    return InstrumentText(link, channel, link.state.VistaDati);
}

std::string InstrumentText(const Link& link, int channel, int view) {
    constexpr double ReducedTop = 255;
    const auto c = static_cast<std::size_t>(channel);
    if (view == EngineeringView) return link.RecCanali.Valore[c];
    const std::string& raw = link.RecCanali.Grezzo[c];
    const double range = link.shell.state.RisoluzionePiena == shell::True ? 0 : ReducedRange(link, channel);
    if (range == 0 || !IsNumeric(raw)) return raw;
    return FixedText(Format0(frames::ScalaValore(ValoreNum(raw), range, ReducedTop, true)), RawWidth);
}

}  // namespace eculink
