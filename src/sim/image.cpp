#include "sim/image.h"

#include <array>

#include "sim/cells.h"

namespace sim {

namespace {

constexpr std::size_t BytesPerLine = 16;
constexpr std::size_t DigitsPerLine = BytesPerLine * 2;
constexpr std::size_t LineLength = DigitsPerLine + 2;
constexpr std::size_t Lines = 128;

// A run of cells of one width whose values stand in a row.
struct CellRow {
    int address;
    int width;
    int value;
};

constexpr auto StandardCells = std::to_array<CellRow>({
    {3072, 2, 0},  // the marker: programmed
    // Sensors.
    {3074, 1, 0},
    {3075, 1, 0},
    {3076, 1, 0},
    {3077, 1, 0},
    {3078, 1, 1},
    {3079, 1, 10},
    {3080, 1, 255},
    {3082, 1, 1},
    {3084, 1, 0},
    {3088, 2, 80},
    {3090, 2, 940},
    {3092, 2, 103},
    {3094, 2, 123},
    {3096, 2, 150},
    {3098, 1, 0},
    {3100, 1, 1},
    {3102, 1, 1},
    {3104, 2, 302},
    {3106, 2, 498},
    {3108, 2, 473},
    {3110, 2, 448},
    {3112, 2, 97},
    {3114, 2, 112},
    {3116, 2, 1300},
    {3118, 1, 0},
    {3120, 2, 20},
    {3122, 2, 180},
    {3124, 2, 113},
    {3126, 2, 103},
    {3128, 2, 124},
    {3130, 2, 113},
    {3132, 2, 124},
    {3134, 2, 113},
    {3136, 2, 1100},
    {3138, 2, 1500},
    {3140, 2, 1800},
    {3142, 2, 2500},
    {3144, 2, 2300},
    {3146, 2, 2000},
    {3148, 2, 5800},
    {3150, 2, 6200},
    {3152, 2, 830},
    // Control: speeds are periods, 1000 / (1.024 x steps a second).
    {3154, 2, 49},
    {3156, 2, 24},
    {3158, 2, 65},
    {3160, 2, 100},
    {3162, 2, 8},
    {3164, 1, 4},
    {3166, 1, 5},
    {3167, 1, 10},
    {3168, 1, 1},
    {3169, 1, 0},
    {3170, 1, 0},
    {3171, 1, 0},
    {3172, 1, 3},
    {3173, 1, 3},
    {3174, 1, 6},
    {3176, 2, 5000},
    {3178, 2, 100},
    {3180, 2, 50},
    {3182, 2, 100},
    // Tank: empty, full, reserve, three levels, overfull.
    {3184, 2, 125},
    {3186, 2, 500},
    {3188, 2, 143},
    {3190, 2, 230},
    {3192, 2, 318},
    {3194, 2, 405},
    {3196, 2, 528},
    // Change-over.
    {3200, 2, 20},
    {3202, 1, 1},
    {3204, 2, 1},
    {3206, 2, 40},
    {3208, 2, 1000},
    {3210, 2, 50},
    {3214, 2, 8},
    {3240, 2, 100},
    {3242, 2, 50},
    {3244, 1, 5},
    {3248, 2, 33},
    {3250, 2, 24},
    {3252, 2, 24},
    {3254, 2, 24},
    {3256, 2, 24},
    {3258, 2, 24},
    {3260, 2, 33},
    {3262, 2, 20},
    {3264, 2, 20},
    {3268, 1, 10},
    {3270, 2, 20},
    {3276, 2, 60},
    {3278, 2, 5},
    {3290, 1, 0},
    {3292, 2, 3000},
    {3312, 1, 17},
    {3320, 2, 1500},
    {3322, 2, 2500},
    {3324, 1, 0},
    {3352, 1, 0},
    {3354, 1, 0},
    // Transients, releases, pump stroke.
    {3598, 1, 1},
    {3652, 1, 0},
    {3658, 2, 20},
    {3660, 2, 100},
    {3662, 2, 30},
    {3724, 2, 20},
    {3726, 1, 1},
    // Diagnosis and self-adaptation.
    {3794, 2, 100},
    {3796, 2, 10},
    {3798, 2, 30},
    {3800, 2, 5},
    {3802, 1, 4},
    {3803, 1, 4},
    {3804, 1, 8},
    {3805, 1, 3},
    {3806, 1, 3},
    {3807, 1, 20},
    {3824, 1, 10},
    {3825, 1, 100},
    {3826, 1, 8},
    {3827, 1, 20},
    {3828, 1, 5},
    {3829, 1, 10},
    {3830, 1, 8},
    {3831, 1, 20},
    {3832, 1, 5},
    {3836, 1, 8},
    {3837, 1, 3},
    {3838, 1, 3},
    {3840, 1, 6},
    {3842, 1, 6},
    {3936, 1, 1},
    // Emulated probe: duty cycles.
    {3970, 2, 225},
    {3972, 2, 265},
});

// Tables: `count` cells of `width` bytes, `stride` bytes apart, rising from `first` by `step`.
struct TableRow {
    int address;
    int count;
    int width;
    int stride;
    int first;
    int step;
};

constexpr auto StandardTables = std::to_array<TableRow>({
    {176, 16, 1, 1, 40, 4},       // cut-off reset
    {192, 16, 1, 1, 60, 6},       // full-load reset
    {3328, 8, 2, 2, 1200, 600},   // breakpoints of the lambda map
    {3344, 4, 2, 2, 200, 150},    // its load breakpoints
    {3360, 40, 2, 4, 113, 0},     // upper thresholds
    {3362, 40, 2, 4, 103, 0},     // lower thresholds
    {3520, 8, 2, 4, 124, 0},      // full load by revolutions, upper
    {3522, 8, 2, 4, 113, 0},      // lower
    {3584, 5, 2, 2, 1000, 1000},  // transients: breakpoints, four columns of figures
    {3600, 4, 2, 2, 40, 10},     {3616, 4, 2, 2, 20, 5},      {3632, 4, 2, 2, 10, 2},
    {3640, 4, 1, 1, 4, 1},       {3712, 5, 2, 2, 1000, 1000},  // releases
    {3728, 4, 2, 2, 30, 10},     {3752, 4, 2, 2, 15, 5},      {3760, 4, 2, 2, 8, 2},
    {3768, 4, 1, 1, 3, 1},       {3808, 16, 1, 1, 0, 0},   // history of the self-adaptation, some zones below
    {3812, 3, 1, 1, 0x1C, 0},    {3976, 5, 2, 6, 112, 0},  // emulated probe
    {3978, 5, 2, 6, 133, 0},
});

// Axes and map of the learned table; the load axis stands for 280 mbar and for six equal steps from idle to rest.
constexpr std::array<int, MapColumns - 1> Breakpoints{600,  830,  1200, 1500, 1900, 2300, 2700, 3100,
                                                      3500, 3900, 4300, 4700, 5100, 5500, 5900};
constexpr std::array<int, MapRows> LoadZones{271, 302, 335, 367, 400, 433, 465, 498};
constexpr int LoadZonesAt = 32;
constexpr int MapAt = 48;
constexpr int CopyAt = 304;  // everything from 0 to the end of the map stands there again
constexpr int MapFirst = 30;
constexpr int MapByColumn = 6;
constexpr int MapByRow = 8;

struct TextRow {
    int address;
    std::string_view text;
};
constexpr auto Identity = std::to_array<TextRow>({
    {4016, "1234567 "},      // code of the acquisition, first piece
    {4024, "0001"},          // section of the final test
    {4028, "000123450042"},  // serial number
    {4062, "1"},             // product code, and second piece
    {4064, "GPLMV00042"},
    {4074, "050126"},  // ddmmyy
    {4080, "RFGASP04"},
});

Area AreaOf(int address) {
    return address >= Areas[static_cast<std::size_t>(Area::Interna)].first ? Area::Interna : Area::Esterna;
}

void PutCell(Memory& memory, int address, int width, int value) {
    Bytes bytes;
    for (int shift = 8 * (width - 1); shift >= 0; shift -= 8) {
        bytes.push_back(static_cast<std::uint8_t>(static_cast<unsigned>(value) >> static_cast<unsigned>(shift)));
    }
    memory.Poke(AreaOf(address), address, bytes);
}

void PutMap(Memory& memory, int base) {
    for (std::size_t i = 0; i < Breakpoints.size(); ++i) {
        PutCell(memory, base + 2 * static_cast<int>(i), 2, Breakpoints[i]);
    }
    for (std::size_t i = 0; i < LoadZones.size(); ++i) {
        PutCell(memory, base + LoadZonesAt + 2 * static_cast<int>(i), 2, LoadZones[i]);
    }
    for (int column = 0; column < MapColumns; ++column) {
        for (int row = 0; row < MapRows; ++row) {
            PutCell(memory, base + MapAt + MapRows * column + row, 1, MapFirst + MapByColumn * column + MapByRow * row);
        }
    }
}

}  // namespace

void ProgramStandardImage(Memory& memory) {
    memory.EraseAll();
    for (const CellRow& row : StandardCells) PutCell(memory, row.address, row.width, row.value);
    for (const TableRow& row : StandardTables) {
        for (int i = 0; i < row.count; ++i) {
            PutCell(memory, row.address + row.stride * i, row.width, row.first + row.step * i);
        }
    }
    PutMap(memory, 0);
    PutMap(memory, CopyAt);
    for (const TextRow& row : Identity) {
        memory.Poke(Area::Interna, row.address, Bytes(row.text.begin(), row.text.end()));
    }
    memory.ReloadWorking();
}

std::string ImageText(const Memory& memory) {
    std::string out;
    out.reserve(Lines * LineLength);
    for (const Area area : {Area::Esterna, Area::Interna}) {
        const AreaRow& row = Areas[static_cast<std::size_t>(area)];
        for (int at = 0; at < row.size; at += static_cast<int>(BytesPerLine)) {
            out += ToHex(*memory.Read(area, row.first + at, static_cast<int>(BytesPerLine)));
            out += "\r\n";
        }
    }
    return out;
}

bool LoadImageText(std::string_view text, Memory& memory) {
    if (text.size() != Lines * LineLength) return false;
    Bytes all;
    for (std::size_t line = 0; line < Lines; ++line) {
        const std::string_view row = text.substr(line * LineLength, LineLength);
        const auto bytes = FromHex(row.substr(0, DigitsPerLine));
        if (!bytes || row.substr(DigitsPerLine) != "\r\n") return false;
        all.insert(all.end(), bytes->begin(), bytes->end());
    }
    auto from = all.begin();
    for (const Area area : {Area::Esterna, Area::Interna}) {
        const AreaRow& row = Areas[static_cast<std::size_t>(area)];
        memory.Poke(area, row.first, Bytes(from, from + row.size));
        from += row.size;
    }
    memory.ReloadWorking();
    return true;
}

}  // namespace sim
