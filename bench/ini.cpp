// Reading one key of a file the size of a language file, against scanning the same bytes once.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>

#include "platform/ini_file.h"

namespace {

std::string LanguageFile() {
    constexpr int Sections = 50;
    constexpr int Keys = 20;
    std::string content;
    for (int section = 0; section < Sections; ++section) {
        content += "[PAGINA" + std::to_string(section) + "]\r\n";
        for (int key = 0; key < Keys; ++key) content += "LABEL." + std::to_string(key) + "=Soglia giri : \r\n";
    }
    return content;
}

void ScanLanguageFile(benchmark::State& state) {
    const std::string content = LanguageFile();
    for (auto _ : state) benchmark::DoNotOptimize(std::count(content.begin(), content.end(), '\n'));
}
BENCHMARK(ScanLanguageFile);

void ReadLanguageFile(benchmark::State& state) {
    const std::string content = LanguageFile();
    for (auto _ : state) benchmark::DoNotOptimize(platform::IniText(content));
}
BENCHMARK(ReadLanguageFile);

void FindLastKey(benchmark::State& state) {
    const platform::IniText text(LanguageFile());
    for (auto _ : state) benchmark::DoNotOptimize(text.Get("PAGINA49", "LABEL.19"));
}
BENCHMARK(FindLastKey);

}  // namespace
