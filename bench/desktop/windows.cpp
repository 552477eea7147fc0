// What the windows do after each event: nothing has changed, or everything has.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <array>
#include <stdexcept>
#include <string>
#include <vector>

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
    std::vector<pages::Control*> OpenLargestGrid() { return {&GridOf(Open(program.tuning.messaL1, 0), "LambdaRicco")}; }

    // The page that holds the most cells: the thresholds of the map, each table beside its initial values.
    std::vector<pages::Control*> OpenThresholds() {
        pages::Page& page = Open(program.tuning.messaP, 0);
        program.shell.stack.Press(*page.Find("SoglieLam"));
        windows.Sync();
        std::vector<pages::Control*> grids;
        for (const char* name : {"LabRPM", "LabTPS", "T_LamInf", "T_LamSup"}) {
            grids.push_back(&GridOf(page, name));
            grids.push_back(grids.back()->beside.initial);
        }
        return grids;
    }

    desktop::Windows windows{program, desktop::LightTheme()};

  private:
    pages::Page& Open(pages::Page& page, int argument) {
        for (const shell::EntryRow& row : shell::Entries()) {
            const bool wanted = row.name == page.Name() && row.argument == argument;
            if (wanted && !page.IsOpen()) shell::ChooseMenu(program.shell, row.menu, row.index);
        }
        windows.Sync();
        RunUntil([this] { return program.link.state.StatoCmd == eculink::Idle; }, Patience);
        windows.Sync();
        if (!page.IsOpen()) throw std::runtime_error(page.Name() + " did not open");
        return page;
    }
    static pages::Control& GridOf(const pages::Page& page, const char* name) {
        pages::Control* grid = page.Find(name);
        if (grid == nullptr || !grid->Visible()) throw std::runtime_error(std::string("no table ") + name);
        return *grid;
    }
};

using Tables = std::vector<pages::Control*> (Shop::*)();

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

void SyncUnchanged(benchmark::State& state, Tables open) {
    Shop shop;
    (shop.*open)();
    for (auto _ : state) shop.windows.Sync();
}

// Every cell gets another figure, in turn.
void SyncAllChanged(benchmark::State& state, Tables open) {
    Shop shop;
    const std::vector<pages::Control*> grids = (shop.*open)();
    std::array<std::vector<pages::Cells>, 2> looks;
    std::size_t cells = 0;
    for (const pages::Control* grid : grids) {
        looks[0].push_back(Filled(*grid, "123"));
        looks[1].push_back(Filled(*grid, "87"));
        const std::size_t rows = grid->GetCells().size() - static_cast<std::size_t>(grid->HeaderRows());
        cells += rows * (grid->GetCells().front().size() - static_cast<std::size_t>(grid->HeaderColumns()));
    }
    std::size_t look = 0;
    for (auto _ : state) {
        look = 1 - look;
        for (std::size_t i = 0; i < grids.size(); ++i)
            grids[i]->SetCells(looks[look][i], grids[i]->HeaderRows(), grids[i]->HeaderColumns());
        shop.windows.Sync();
    }
    state.counters["cells"] = static_cast<double>(cells);
}

void SyncGridUnchanged(benchmark::State& state) {
    SyncUnchanged(state, &Shop::OpenLargestGrid);
}
BENCHMARK(SyncGridUnchanged);
void SyncGridAllChanged(benchmark::State& state) {
    SyncAllChanged(state, &Shop::OpenLargestGrid);
}
BENCHMARK(SyncGridAllChanged);
void SyncThresholdsUnchanged(benchmark::State& state) {
    SyncUnchanged(state, &Shop::OpenThresholds);
}
BENCHMARK(SyncThresholdsUnchanged);
void SyncThresholdsAllChanged(benchmark::State& state) {
    SyncAllChanged(state, &Shop::OpenThresholds);
}
BENCHMARK(SyncThresholdsAllChanged);

}  // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&argc, argv);
    QApplication application(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
