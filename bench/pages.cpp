// The largest tuning page, from the menu to its figures, on virtual time with the simulated unit: what the chain costs
// the program, and how many ticks of the reception it takes for its frames.

#include <benchmark/benchmark.h>

#include "support/simulated.h"
#include "tuning/messap_pages.h"
#include "tuning/page_frames.h"

namespace {

constexpr double Tick = 100000;        // us, of the reception
constexpr std::int64_t Limit = 60000;  // ms

int LargestPage() {
    const auto pages = tuning::MessaPPages();
    const auto shorter = [](const tuning::PageRow& a, const tuning::PageRow& b) {
        return tuning::PageReads(a).size() < tuning::PageReads(b).size();
    };
    return static_cast<int>(std::max_element(pages.begin(), pages.end(), shorter) - pages.begin());
}

void OpenLargestPage(benchmark::State& state) {
    support::Simulated rig;
    if (!rig.Connect()) return state.SkipWithError("the unit was not recognised");
    double frames = 0;
    double micros = 0;
    rig.program.link.trace = [&frames](eculink::Direction direction, std::string_view) {
        if (direction == eculink::Direction::Sent) ++frames;
    };
    const shell::Commands::Run* open = rig.program.shell.commands.Find("MessaP");
    const int page = LargestPage();
    for (auto _ : state) {
        const std::int64_t start = rig.host.world.ElapsedMicros();
        (*open)({"MessaP", page, ""});
        if (!rig.RunUntil([&rig] { return rig.program.link.state.StatoCmd == eculink::Idle; }, Limit)) {
            state.SkipWithError("the page was not read");
            break;
        }
        micros += static_cast<double>(rig.host.world.ElapsedMicros() - start);
    }
    state.counters["frames"] = frames;
    state.counters["ticks"] = micros / Tick;
}
BENCHMARK(OpenLargestPage)->Unit(benchmark::kMillisecond);

}  // namespace
