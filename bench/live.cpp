// One live frame from the receive buffer to the instruments' texts, against scanning the same bytes once.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>
#include <vector>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "link/frames/numbers.h"
#include "link/reception.h"
#include "support/live_frame.h"
#include "support/machine.h"

namespace {

// Frames of a running engine, no two alike in a row.
std::vector<std::string> Drive() {
    constexpr int Frames = 64;
    std::vector<std::string> drive;
    support::LiveFrame frame;
    const auto field = [](int figure) { return frames::RightAlign(frames::Format0(figure), eculink::RawWidth); };
    for (int i = 0; i < Frames; ++i) {
        frame.giri = field(1000 + 37 * i);
        frame.lambda = field(100 + 11 * i);
        frame.tps = field(120 + 5 * i);
        frame.map = field(210 + 7 * i);
        drive.push_back(frame.Long());
    }
    return drive;
}

struct Live : support::Machine {
    Live() {
        Start();
        BecomeReady();
        State().mapTable.linea[1] = {200, 820};
    }
    // The next frame of the drive arrives and is taken.
    void TakeFrame() {
        State().BufferRx += drive_[next_++ % drive_.size()];
        eculink::EstraiFrame(Link());
    }

  private:
    const std::vector<std::string> drive_ = Drive();
    std::size_t next_ = 0;
};

void ScanLiveFrame(benchmark::State& state) {
    const auto drive = Drive();
    std::size_t next = 0;
    for (auto _ : state) {
        const std::string& frame = drive[next++ % drive.size()];
        benchmark::DoNotOptimize(std::count(frame.begin(), frame.end(), frames::Stx));
    }
}
BENCHMARK(ScanLiveFrame);

void PopAndDecodeLiveFrame(benchmark::State& state) {
    Live live;
    for (auto _ : state) live.TakeFrame();
    if (live.Link().RecCanali.Progressivo == 0) state.SkipWithError("no frame was taken");
}
BENCHMARK(PopAndDecodeLiveFrame);

void PopDecodeAndShowLiveFrame(benchmark::State& state) {
    Live live;
    for (auto _ : state) {
        live.TakeFrame();
        eculink::AggiornaPagina(live.Link());
    }
}
BENCHMARK(PopDecodeAndShowLiveFrame);

#ifdef __GLIBC__
// More than a day of driving on virtual time; `grown` is what the program holds afterwards that it did not hold before.
void MillionFrames(benchmark::State& state) {
    constexpr int Frames = 1000000;
    constexpr int Settling = 10000;
    const auto drive = Drive();
    for (auto _ : state) {
        Live live;
        for (int i = 0; i < Settling; ++i) live.Take(drive[static_cast<std::size_t>(i) % drive.size()]);
        const std::size_t before = mallinfo2().uordblks;
        for (int i = 0; i < Frames; ++i) live.Take(drive[static_cast<std::size_t>(i) % drive.size()]);
        if (live.Link().RecCanali.Progressivo != Settling + Frames) state.SkipWithError("frames were lost");
        state.counters["grown_bytes"] = static_cast<double>(mallinfo2().uordblks) - static_cast<double>(before);
    }
}
BENCHMARK(MillionFrames)->Iterations(1)->Unit(benchmark::kMillisecond);
#endif

}  // namespace
