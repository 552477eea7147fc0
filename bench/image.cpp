// Decoding a whole image, as at the end of every recognition.

#include <benchmark/benchmark.h>

#include <string>

#include "link/frames/numbers.h"
#include "memory/image.h"
#include "memory/image_cells.h"
#include "tuning/limits.h"
#include "tuning/parameter_map.h"

namespace {

std::string Content() {
    std::string content;
    for (int line = 0; line < memory::ImageLines; ++line) {
        for (int byte = 0; byte < memory::LineBytes; ++byte) {
            content += frames::Hex(static_cast<std::uint32_t>((line * memory::LineBytes + byte) % 251), 1);
        }
        content += "\r\n";
    }
    return content;
}

void ScanImage(benchmark::State& state) {
    const std::string content = Content();
    for (auto _ : state) {
        int sum = 0;
        for (const char c : content) sum += c;
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(ScanImage);

void DecodeImage(benchmark::State& state) {
    const std::string content = Content();
    for (auto _ : state) {
        const std::string image = memory::JoinLines(content);
        const tuning::CellReader cells = [&image](int address, int bytes) {
            return memory::ByteCella(image, address, bytes);
        };
        const memory::ImageInfo info = memory::ReadImageInfo(image, {});
        tuning::CalibrationTable calibration;
        tuning::MemoriaTable memoria;
        tuning::CostruisciCalibrazione(calibration);
        tuning::CostruisciMemoria(memoria);
        tuning::DecodeCalibration(calibration, cells, info.programmed, false);
        tuning::Context context = tuning::ContextOf(calibration, false, true);
        tuning::TakeSelectors(context, memoria, cells);
        tuning::SetLimits(memoria, cells, context);
        benchmark::DoNotOptimize(memoria);
    }
}
BENCHMARK(DecodeImage);

}  // namespace
