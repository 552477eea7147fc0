#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tuning {

inline constexpr int MapColumns = 16;  // by revolutions
inline constexpr int MapRows = 8;      // by manifold pressure
inline constexpr int MapCells = MapColumns * MapRows;

// The table from which the unit takes its rich target: the breakpoints of both axes in 16 bits, revolutions a minute
// and converter counts, and one byte a cell, column by column: cell 8 x column + row.
struct BaseMap {
    std::array<int, MapColumns> Giri{};
    std::array<int, MapRows> MAPV{};
    std::array<int, MapCells> LambdaRicco{};
};

// What a frame carries: figures of the map, or words that are no part of it (written 0, passed over when read).
enum class MapPart : std::uint8_t { Giri, MAPV, LambdaRicco, Filler };

struct MapRun {
    MapPart part = MapPart::Filler;
    int first = 0;
    int count = 0;
};

// One frame of the exchanges of the map.
struct MapFrame {
    char letter;
    int address;
    std::array<MapRun, 3> runs;

    // Whether it goes to the working memory, not to the permanent one.
    bool ToWorkingMemory() const { return letter == 'W'; }
};

// Bytes behind the address.
int ByteCount(const MapFrame& frame);
std::string ReadText(const MapFrame& frame);
// With the figures of the map; what does not fit its cell is held within 0 and the cell's largest value.
std::string WriteText(const MapFrame& frame, const BaseMap& map);
// Takes the payload of a reply into the map. False, and the map is as it was, when it is not exactly the bytes that the
// frame asks for.
bool TakeReply(const MapFrame& frame, std::string_view payload, BaseMap& map);

// What the frame carries, from one map into another.
void CopyFigures(const MapFrame& frame, const BaseMap& from, BaseMap& to);

// The table as the permanent memory holds it, then the working copies of the ends of the axes: the sign that the unit
// answers for its live table.
std::vector<MapFrame> OpeningReads();
// The live cells alone.
std::vector<MapFrame> LiveReads();
// The axes: permanent cells with their copies, the history of the self-adaptation cleared, and the working copies.
std::vector<MapFrame> AxisWrites();
// One column, 0 to 15: its live cells one by one; and its permanent cells with their copy.
std::vector<MapFrame> LiveColumnWrites(int column);
std::vector<MapFrame> StoredColumnWrites(int column);

std::string ReadChain(const std::vector<MapFrame>& frames);
std::string WriteChain(const std::vector<MapFrame>& frames, const BaseMap& map);

}  // namespace tuning
