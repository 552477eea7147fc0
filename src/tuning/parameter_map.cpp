#include "tuning/parameter_map.h"

#include "link/frames/numbers.h"
#include "tuning/parameter_table.h"

namespace tuning {

const std::array<Row, MemoriaCount> ParameterRows = table::Rows;

namespace {

constexpr std::size_t FigureWidth = 8;

struct Seed {
    std::size_t number;
    int figure;
};

// A new installation: change-over, tank, emulation of the probe.
constexpr Seed Seeds[] = {
    {321, 1},   {322, 150},  {323, 2000}, {324, 40},  {325, 20},  {326, 1},   {327, 20},  {328, 8},
    {329, 5},   {330, 5000}, {331, 120},  {332, 1},   {333, 125}, {335, 143}, {336, 230}, {337, 318},
    {338, 405}, {334, 500},  {339, 528},  {340, 0},   {341, 225}, {342, 265}, {343, 112}, {344, 133},
    {345, 112}, {346, 133},  {347, 112},  {348, 133}, {349, 112}, {350, 133}, {351, 112}, {352, 133},
};

// What stands in Dato while nothing has been read.
std::string NoFigure() {
    return std::string(FigureWidth, ' ');
}

constexpr double ConstantOr0(const Bound& bound) {
    return bound.source == Source::Constant ? bound.value : 0;
}

Record FromRow(const Row& row) {
    return {.EE = row.EE,
            .RAM = row.RAM,
            .NByte = row.NByte,
            .Min = ConstantOr0(row.min),
            .Max = ConstantOr0(row.max),
            .Dato = {NoFigure(), NoFigure(), NoFigure()},
            .raw = {},
            .shown = {},
            .tried = {},
            .row = &row};
}

}  // namespace

std::string FigureText(double figure) {
    return frames::RightAlign(frames::Format0(figure), FigureWidth);
}

void CostruisciMemoria(MemoriaTable& memoria) {
    for (std::size_t i = 0; i < memoria.size(); ++i) memoria[i] = FromRow(ParameterRows[i]);
    for (const Seed& seed : Seeds) {
        Record& record = memoria[seed.number];
        record.Dato[0] = record.Dato[1] = FigureText(seed.figure);
    }
}

}  // namespace tuning
