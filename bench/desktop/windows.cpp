// What the windows do after each event: nothing has changed, or everything has.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <array>
#include <stdexcept>

#include "desktop/windows.h"
#include "shell/menus.h"
#include "support/simulated.h"

namespace {

constexpr std::int64_t Patience = 60000;  // ms of virtual time

// The program with a unit that is heard, its windows open.
struct Shop : support::Simulated {
    Shop() {
        if (!Connect()) throw std::runtime_error("the unit was not recognised");
        windows.Sync();
    }

    // The largest table of the program, with what it reads.
    pages::Control& OpenLargestGrid() {
        pages::Page& page = program.tuning.messaL1;
        for (const shell::EntryRow& row : shell::Entries()) {
            if (row.name == page.Name()) shell::ChooseMenu(program.shell, row.menu, row.index);
        }
        windows.Sync();
        RunUntil([this] { return program.link.state.StatoCmd == eculink::Idle; }, Patience);
        windows.Sync();
        pages::Control* grid = page.Find("LambdaRicco");
        if (!page.IsOpen() || grid == nullptr) throw std::runtime_error("the base map did not open");
        return *grid;
    }

    desktop::Windows windows{program, desktop::LightTheme()};
};

// Every instrument, lamp and word of the page gets another look, in turn.
void ChangeAll(eculink::Grafici& page, bool second) {
    constexpr std::array<const char*, 2> Figures{"    1234", "     987"};
    constexpr std::array<const char*, 2> Colours{"green", "white"};
    const std::size_t look = second ? 1 : 0;
    for (int channel = 0; channel < eculink::InstrumentCount; ++channel) page.DatiMot[channel].SetText(Figures[look]);
    for (const auto& lamp : page.Led) lamp->SetColour(Colours[look]);
    page.LedC.SetColour(Colours[look]);
    page.Commu.SetIndex(static_cast<int>(look));
}

pages::Cells Filled(const pages::Control& grid, const std::string& figure) {
    pages::Cells cells = grid.GetCells();
    for (std::size_t row = static_cast<std::size_t>(grid.HeaderRows()); row < cells.size(); ++row) {
        for (std::size_t column = static_cast<std::size_t>(grid.HeaderColumns()); column < cells[row].size(); ++column)
            cells[row][column] = figure;
    }
    return cells;
}

void SyncGraficiUnchanged(benchmark::State& state) {
    Shop shop;
    for (auto _ : state) shop.windows.Sync();
}
BENCHMARK(SyncGraficiUnchanged);

void SyncGraficiAllChanged(benchmark::State& state) {
    Shop shop;
    bool second = false;
    for (auto _ : state) {
        ChangeAll(shop.program.link.grafici, second = !second);
        shop.windows.Sync();
    }
}
BENCHMARK(SyncGraficiAllChanged);

void SyncGridUnchanged(benchmark::State& state) {
    Shop shop;
    shop.OpenLargestGrid();
    for (auto _ : state) shop.windows.Sync();
}
BENCHMARK(SyncGridUnchanged);

void SyncGridAllChanged(benchmark::State& state) {
    Shop shop;
    pages::Control& grid = shop.OpenLargestGrid();
    const std::array<pages::Cells, 2> looks{Filled(grid, "123"), Filled(grid, "87")};
    const int rows = grid.HeaderRows();
    const int columns = grid.HeaderColumns();
    std::size_t look = 0;
    for (auto _ : state) {
        grid.SetCells(looks[look = 1 - look], rows, columns);
        shop.windows.Sync();
    }
}
BENCHMARK(SyncGridAllChanged);

}  // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&argc, argv);
    QApplication application(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
