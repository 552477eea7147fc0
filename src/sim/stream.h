#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "sim/engine.h"
#include "sim/memory.h"

namespace sim {

inline constexpr int ShortFrame = 47;
inline constexpr int LongFrame = 51;  // with the second pressure

// One field of the live frame: where it begins (STX is position 1), its width, its name.
struct FieldRow {
    int position;
    int width;
    std::string_view name;
};

inline constexpr auto Fields = std::to_array<FieldRow>({
    {3, 4, "GIRI"},     {7, 4, "LAMBDA"},      {11, 4, "TPS"},     {15, 4, "MAP"},    {19, 4, "TEMPERATURA"},
    {23, 4, "LIVELLO"}, {27, 3, "STEP"},       {30, 3, "CSTEC"},   {33, 1, "STATO2"}, {34, 1, "STATOAA"},
    {35, 1, "MACRO"},   {36, 1, "RICCOMAGRO"}, {37, 1, "LIBERO"},  {38, 1, "STATO4"}, {39, 1, "STATO1"},
    {40, 1, "STATO3"},  {41, 3, "ZONE"},       {44, 3, "MEMORIA"}, {47, 4, "P1"},
});

// The field of that name (any case) or with that number as its position; null when there is none.
const FieldRow* FindField(std::string_view nameOrPosition);

// How the stream is sent.
struct StreamSettings {
    bool on = true;
    // After an answer the stream rests for a moment, so that a conversation is not held up behind live frames; steady
    // leaves the rest out.
    bool steady = false;
    int length = LongFrame;
    double rate = 10;                      // frames a second
    std::map<int, std::string> overrides;  // by position: the field's text, whatever the engine does
};

// The status digits, 1 to 4 at index 0 to 3: switch, lamp row animation, tank level, central lamp.
std::array<char, 4> StatusDigits(const Readings& readings, const Drive& drive, const Memory& memory);

// The whole frame, STX and ETX included.
std::string LiveFrame(const Readings& readings, const Drive& drive, const Memory& memory,
                      const StreamSettings& settings);

}  // namespace sim
