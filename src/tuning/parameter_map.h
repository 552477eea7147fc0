#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "tuning/parameter_rows.h"

namespace tuning {

inline constexpr std::size_t MemoriaCount = 363;
// The settings of the installation have their numbers from the unit's first program on; what stands below them is the
// tables and the fields of the trim pages in their order, with spare rows behind.
inline constexpr std::size_t FirstSetting = 321;

// All rows, by number.
extern const std::array<Row, MemoriaCount> ParameterRows;

// One parameter as the program holds it.
struct Record {
    static constexpr std::string_view Formato = "#0";

    int EE = NoAddress;       // cell in the image
    int RAM = NoWorkingCopy;  // live copy in the unit
    int NByte = 1;
    double Min = 0;  // in the unit of the page, like Dato
    double Max = 0;
    // Figures as the page shows them, right-aligned in 8: as read, as now edited, and a third for the map tables.
    std::array<std::string, 3> Dato;
    // The count that Dato(0) was shown from.
    std::optional<std::uint32_t> raw;
    // A count and the figure that it was shown as.
    struct Shown {
        std::uint32_t count = 0;
        std::string figure;
    };
    // What Dato(1) was shown from. Showing rounds, so that the figure, as long as it stands, goes out as this count.
    std::optional<Shown> shown;
    // What was last sent to the working copy since the cell was read; nothing: it is as read.
    std::optional<std::uint32_t> tried;
    const Row* row = nullptr;
};

using MemoriaTable = std::array<Record, MemoriaCount>;

// Fills every record from its row: addresses, width, the limits that are constants (a limit from elsewhere is 0 until
// it is worked out) and, for the settings, the figures of a new installation, which stand until their page is read.
void CostruisciMemoria(MemoriaTable& memoria);

// A figure as it stands in Dato.
std::string FigureText(double figure);

}  // namespace tuning
