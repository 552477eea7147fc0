// Look-ups of records by name and the limits of a decoded image.

#include <benchmark/benchmark.h>

#include <array>
#include <memory>

#include "tuning/limits.h"
#include "tuning/parameter_names.h"

namespace {

void FindRecordByName(benchmark::State& state) {
    constexpr std::array<std::string_view, 8> names = {"ValMin(1)", "Memoria(333)", "Giri_ResCO(17)",
                                                       "SogliaFG",  "TransitT(25)", "TPS(4)",
                                                       "ScelgoMAP", "NoSuchName(3)"};
    std::size_t next = 0;
    for (auto _ : state) benchmark::DoNotOptimize(tuning::FindRecord(names[next++ % names.size()]));
}
BENCHMARK(FindRecordByName);

void BuildAndLimit(benchmark::State& state) {
    const auto memoria = std::make_unique<tuning::MemoriaTable>();
    const tuning::CellReader cell = [](int address, int) { return static_cast<std::uint32_t>(address & 0x3FF); };
    tuning::Context context;
    context.tabella.linea[1] = {200, 820};
    for (auto _ : state) {
        tuning::CostruisciMemoria(*memoria);
        tuning::TakeSelectors(context, *memoria, cell);
        tuning::SetLimits(*memoria, cell, context);
        benchmark::DoNotOptimize(memoria->data());
    }
}
BENCHMARK(BuildAndLimit);

}  // namespace
