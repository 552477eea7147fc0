// What the program itself spends on a unit that is put on: the blocks of its memory, appended to their files one by
// one, and the decoding at their end.

#include <benchmark/benchmark.h>

#include "support/scripted_unit.h"
#include "support/simulated.h"

namespace {

// The unit answers at once; what is counted is the program, its files and the script.
void ConnectionRead(benchmark::State& state) {
    support::ScriptedUnit unit;
    if (!unit.Connect()) state.SkipWithError("the unit was not recognised");
    for (auto _ : state) {
        unit.State().CentralinaDaRiconoscere = shell::True;
        unit.Take(support::LiveFrame().Long());
        if (!unit.Converse([&unit] { return unit.State().StatoCmd == eculink::Idle; })) {
            state.SkipWithError("the read did not end");
        }
        unit.asked.clear();
    }
}
BENCHMARK(ConnectionRead)->Unit(benchmark::kMillisecond);

// The same with a unit on a line of 38400 baud that streams as well: what the fitter waits.
void ConnectionReadOnTheLine(benchmark::State& state) {
    for (auto _ : state) {
        support::Simulated unit;
        if (!unit.Connect()) state.SkipWithError("the unit was not recognised");
        state.counters["virtual_s"] = static_cast<double>(unit.host.world.ElapsedMicros()) / 1e6;
    }
}
BENCHMARK(ConnectionReadOnTheLine)->Iterations(3)->Unit(benchmark::kMillisecond);

// Both area files read, every record filled, every limit worked out.
void DecodeFiles(benchmark::State& state) {
    support::Simulated unit;
    if (!unit.Connect()) state.SkipWithError("the unit was not recognised");
    for (auto _ : state) {
        if (!tuning::DecodificaImmagine(unit.program.tuning)) state.SkipWithError("the files could not be read");
    }
}
BENCHMARK(DecodeFiles);

// The two files alone, for comparison.
void ReadFiles(benchmark::State& state) {
    support::Simulated unit;
    if (!unit.Connect()) state.SkipWithError("the unit was not recognised");
    for (auto _ : state) {
        for (const char* name : {memory::ExternalFile, memory::InternalFile}) {
            benchmark::DoNotOptimize(unit.files.Read(unit.folder.Path() / name, platform::Files::DefaultLimit));
        }
    }
}
BENCHMARK(ReadFiles);

}  // namespace
