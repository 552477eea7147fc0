#include "sim/stream.h"

#include <algorithm>

#include "platform/text.h"
#include "sim/bytes.h"
#include "sim/cells.h"

namespace sim {

namespace {

// The tank's levels where the cells are erased, in counts: empty, reserve, three levels, full, overfull.
constexpr std::array<int, 7> UsualLevels{125, 143, 230, 318, 405, 500, 528};
// The lamp row's digit by how many of the levels the tank stands above.
constexpr std::string_view LevelDigits = "10234556";

// What the lamp row plays while the mode cell is not 0.
struct ModeRow {
    int mode;
    char digit;
};
constexpr auto Modes = std::to_array<ModeRow>({
    {0xAA, '3'},  // learning: one lamp runs to and fro
    {0xFF, '1'},  // calibration by the fitter: the pairs take turns
});
constexpr char FirstAcquisition = '4';  // a blank unit whose switch was moved: the halves take turns

constexpr char AdaptationOff = '0';
constexpr char AdaptationOn = '1';

char LampRow(const Drive& drive, const Memory& memory) {
    const int mode = memory.Byte(Area::Working, live::Mode);
    const auto* const row =
        std::find_if(Modes.begin(), Modes.end(), [mode](const ModeRow& m) { return m.mode == mode; });
    if (row != Modes.end()) return row->digit;
    return !memory.Programmed() && drive.switchDigit != '0' ? FirstAcquisition : '0';
}

char TankDigit(const Readings& readings, const Memory& memory) {
    if (!readings.onGas) return '1';
    std::size_t passed = 0;
    for (std::size_t i = 0; i < live::TankLevels.size(); ++i) {
        const int cell = memory.Word(Area::Working, live::TankLevels[i]);
        if (readings.level >= (cell == ErasedWord ? UsualLevels[i] : cell)) passed = i + 1;
    }
    return LevelDigits[passed];
}

char CentralLamp(const Readings& readings) {
    if (readings.waitingForGas) return '5';
    if (!readings.onGas) return '1';
    return readings.closedLoop ? '2' : '3';
}

// Right-aligned with zeros, as the unit's own number output writes it.
std::string Number(int value, int width) {
    std::string text = std::to_string(std::max(0, value));
    const auto wide = static_cast<std::size_t>(width);
    if (text.size() > wide) return std::string(wide, '9');
    return std::string(wide - text.size(), '0') + text;
}

void Put(std::string& frame, int position, std::string_view text) {
    frame.replace(static_cast<std::size_t>(position - 1), text.size(), text);
}

}  // namespace

const FieldRow* FindField(std::string_view nameOrPosition) {
    const auto position = Decimal(nameOrPosition);
    const auto* const found = std::find_if(Fields.begin(), Fields.end(), [&](const FieldRow& row) {
        return position ? row.position == *position : platform::EqualsIgnoringCase(row.name, nameOrPosition);
    });
    return found == Fields.end() ? nullptr : found;
}

std::array<char, 4> StatusDigits(const Readings& readings, const Drive& drive, const Memory& memory) {
    return {drive.switchDigit, LampRow(drive, memory), TankDigit(readings, memory), CentralLamp(readings)};
}

std::string LiveFrame(const Readings& readings, const Drive& drive, const Memory& memory,
                      const StreamSettings& settings) {
    std::string frame(static_cast<std::size_t>(settings.length), '0');
    frame.front() = Stx;
    frame[1] = 'D';
    const std::array<char, 4> status = StatusDigits(readings, drive, memory);
    const int correction = readings.correction < 0 ? readings.correction + 256 : readings.correction;
    const bool adapting = readings.closedLoop && memory.Byte(Area::Working, live::SelfAdaptation) != 0;
    Put(frame, 3, Number(readings.revolutions, 4));
    Put(frame, 7, Number(readings.lambda, 4));
    Put(frame, 11, Number(readings.throttle, 4));
    Put(frame, 15, Number(readings.pressure, 4));
    Put(frame, 19, Number(readings.temperature, 4));
    Put(frame, 23, Number(readings.level, 4));
    Put(frame, 27, Number(readings.step, 3));
    Put(frame, 30, Number(correction, 3));
    frame[32] = status[1];
    frame[33] = adapting ? AdaptationOn : AdaptationOff;
    frame[34] = static_cast<char>('0' + static_cast<int>(readings.zone));
    frame[35] = readings.rich ? 'R' : 'M';
    frame[37] = status[3];
    frame[38] = status[0];
    frame[39] = status[2];
    Put(frame, 41, Number(readings.mapCell, 3));
    if (settings.length == LongFrame) Put(frame, 47, Number(readings.gasPressure, 4));
    for (const auto& [position, text] : settings.overrides) {
        if (position - 1 + static_cast<int>(text.size()) < settings.length) Put(frame, position, text);
    }
    frame.back() = Etx;
    return frame;
}

}  // namespace sim
