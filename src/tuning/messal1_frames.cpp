#include "tuning/messal1_frames.h"

#include <algorithm>

#include "link/frames/build.h"
#include "link/frames/numbers.h"

namespace tuning {

namespace {

using Part = MapPart;

// The table fills ESTERNA from 0 to 175, but for the last rev breakpoint, which is the over-speed threshold; the whole
// stands there once more from 304 on. The working copy has its cells in one piece and the axes scattered.
constexpr int StoredCells = 48;
constexpr int CopyOffset = 304;
constexpr int LiveCells = 1064;
constexpr int BlockBytes = 16;

constexpr std::array<MapFrame, 3> AxisReads{{
    {'L', 0, {{{Part::Giri, 0, 8}}}},
    {'L', 16, {{{Part::Giri, 8, 7}}}},
    {'L', 32, {{{Part::MAPV, 0, 8}}}},
}};
constexpr MapFrame OverSpeedRead{'O', 3150, {{{Part::Giri, 15, 1}}}};
constexpr MapFrame LiveEndsRead{'R', 217, {{{Part::Filler, 0, 3}}}};

constexpr std::array<MapFrame, 13> AxisWriteRows{{
    {'I', 0, {{{Part::Giri, 0, 8}}}},
    {'I', CopyOffset, {{{Part::Giri, 0, 8}}}},
    {'I', 16, {{{Part::Giri, 8, 7}}}},
    {'I', CopyOffset + 16, {{{Part::Giri, 8, 7}}}},
    {'S', 3150, {{{Part::Giri, 15, 1}}}},
    {'I', 32, {{{Part::MAPV, 0, 8}}}},
    {'I', CopyOffset + 32, {{{Part::MAPV, 0, 8}}}},
    {'S', 3808, {{{Part::Filler, 0, 8}}}},
    {'W', 1024, {{{Part::Giri, 1, 8}}}},
    {'W', 1040, {{{Part::Giri, 9, 6}}}},
    {'W', 39, {{{Part::Giri, 15, 1}}}},
    {'W', 217, {{{Part::Giri, 0, 1}, {Part::MAPV, 0, 1}, {Part::MAPV, 7, 1}}}},
    {'W', 1052, {{{Part::MAPV, 1, 6}}}},
}};

int WidthOf(Part part) {
    return part == Part::LambdaRicco ? 1 : 2;
}

// The figure of a run at its nth place; null for a word that is no part of the map.
int* FigureAt(BaseMap& map, const MapRun& run, int n) {
    const auto at = static_cast<std::size_t>(run.first + n);
    switch (run.part) {
        case Part::Giri:
            return &map.Giri.at(at);
        case Part::MAPV:
            return &map.MAPV.at(at);
        case Part::LambdaRicco:
            return &map.LambdaRicco.at(at);
        case Part::Filler:
            break;
    }
    return nullptr;
}

MapFrame CellFrame(char letter, int base, int first, int count) {
    return {letter, base + first, {{{Part::LambdaRicco, first, count}}}};
}

void AddCellBlocks(std::vector<MapFrame>& frames, char letter, int base) {
    for (int first = 0; first < MapCells; first += BlockBytes)
        frames.push_back(CellFrame(letter, base, first, BlockBytes));
}

bool AllHex(std::string_view text) {
    return text.find_first_not_of("0123456789ABCDEFabcdef") == std::string_view::npos;
}

}  // namespace

int ByteCount(const MapFrame& frame) {
    int bytes = 0;
    for (const MapRun& run : frame.runs) bytes += run.count * WidthOf(run.part);
    return bytes;
}

std::string ReadText(const MapFrame& frame) {
    return frames::ReadFrame(frame.letter, frame.address, ByteCount(frame));
}

std::string WriteText(const MapFrame& frame, const BaseMap& map) {
    BaseMap figures = map;
    std::string data;
    for (const MapRun& run : frame.runs) {
        const int width = WidthOf(run.part);
        const int largest = width == 1 ? 0xFF : 0xFFFF;
        for (int n = 0; n < run.count; ++n) {
            const int* figure = FigureAt(figures, run, n);
            const int value = figure == nullptr ? 0 : std::clamp(*figure, 0, largest);
            data += frames::Hex(static_cast<std::uint32_t>(value), width);
        }
    }
    return frames::WriteFrame(frame.letter, frame.address, ByteCount(frame), data);
}

bool TakeReply(const MapFrame& frame, std::string_view payload, BaseMap& map) {
    if (payload.size() != static_cast<std::size_t>(2 * ByteCount(frame)) || !AllHex(payload)) return false;
    for (const MapRun& run : frame.runs) {
        const auto digits = static_cast<std::size_t>(2 * WidthOf(run.part));
        for (int n = 0; n < run.count; ++n) {
            if (int* figure = FigureAt(map, run, n)) *figure = frames::HexInt(payload.substr(0, digits)).value_or(0);
            payload.remove_prefix(digits);
        }
    }
    return true;
}

void CopyFigures(const MapFrame& frame, const BaseMap& from, BaseMap& to) {
    BaseMap source = from;
    for (const MapRun& run : frame.runs) {
        for (int n = 0; n < run.count; ++n) {
            if (int* figure = FigureAt(to, run, n)) *figure = *FigureAt(source, run, n);
        }
    }
}

std::vector<MapFrame> OpeningReads() {
    std::vector<MapFrame> frames(AxisReads.begin(), AxisReads.end());
    AddCellBlocks(frames, 'L', StoredCells);
    frames.push_back(OverSpeedRead);
    frames.push_back(LiveEndsRead);
    return frames;
}

std::vector<MapFrame> LiveReads() {
    std::vector<MapFrame> frames;
    AddCellBlocks(frames, 'R', LiveCells);
    return frames;
}

std::vector<MapFrame> AxisWrites() {
    return {AxisWriteRows.begin(), AxisWriteRows.end()};
}

std::vector<MapFrame> LiveColumnWrites(int column) {
    std::vector<MapFrame> frames;
    for (int row = 0; row < MapRows; ++row) frames.push_back(CellFrame('W', LiveCells, MapRows * column + row, 1));
    return frames;
}

std::vector<MapFrame> StoredColumnWrites(int column) {
    return {CellFrame('I', StoredCells, MapRows * column, MapRows),
            CellFrame('I', StoredCells + CopyOffset, MapRows * column, MapRows)};
}

std::string ReadChain(const std::vector<MapFrame>& frames) {
    std::string chain;
    for (const MapFrame& frame : frames) chain += ReadText(frame);
    return chain;
}

std::string WriteChain(const std::vector<MapFrame>& frames, const BaseMap& map) {
    std::string chain;
    for (const MapFrame& frame : frames) chain += WriteText(frame, map);
    return chain;
}

}  // namespace tuning
