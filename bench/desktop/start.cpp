// From the start of a process to its first paint: the whole program in a folder that it knows, against the smallest
// window that the toolkit can show. Each run is a process of its own, started from this one.
//   bench_start                   measures
//   bench_start --smallest        shows the smallest window and ends
//   bench_start --program FOLDER  starts the program in the folder, shows its window and ends

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPaintEvent>
#include <QProcess>
#include <QTimer>
#include <QWidget>
#include <chrono>

#include "desktop/windows.h"
#include "platform/qt/qt_host.h"
#include "program/program.h"
#include "program/start.h"
#include "support/temporary_folder.h"

namespace {

constexpr const char* Smallest = "--smallest";
constexpr const char* Whole = "--program";

// Ends the process when something has been painted.
class FirstPaint : public QObject {
  public:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(0); });
        return false;
    }
};

int ShowSmallest(QApplication& application) {
    FirstPaint painted;
    application.installEventFilter(&painted);
    QWidget window;
    window.show();
    return QApplication::exec();
}

int ShowProgram(QApplication& application, const char* folder) {
    FirstPaint painted;
    application.installEventFilter(&painted);
    platform::qt::QtHost machine;
    shell::Options options;
    options.folder = folder;
    options.shipped = MARLOVENT_DATA;
    program::Program program(machine.Get(), options);
    const desktop::Theme& theme = desktop::ChooseTheme("auto", QApplication::palette());
    desktop::ApplyTheme(theme);
    desktop::Windows windows(program, theme);
    if (!program::Start(program)) return 1;
    windows.Sync();
    return QApplication::exec();
}

void Run(benchmark::State& state, const QStringList& arguments) {
    const QString self = QCoreApplication::applicationFilePath();
    // The first run fills the folder and the caches of the system.
    if (QProcess::execute(self, arguments) != 0) return state.SkipWithError("the process failed");
    for (auto _ : state) {
        const auto begun = std::chrono::steady_clock::now();
        const int status = QProcess::execute(self, arguments);
        state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count());
        if (status != 0) state.SkipWithError("the process failed");
    }
}

void StartSmallestWindow(benchmark::State& state) {
    Run(state, {QString::fromLatin1(Smallest)});
}
BENCHMARK(StartSmallestWindow)->UseManualTime()->Unit(benchmark::kMillisecond);

void StartProgram(benchmark::State& state) {
    const support::TemporaryFolder folder;
    Run(state, {QString::fromLatin1(Whole), QString::fromStdString(folder.Path().string())});
}
BENCHMARK(StartProgram)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QByteArray word = argc > 1 ? argv[1] : "";
    const bool smallest = word == Smallest;
    if (smallest || (word == Whole && argc > 2)) {
        QApplication application(argc, argv);
        return smallest ? ShowSmallest(application) : ShowProgram(application, argv[2]);
    }
    benchmark::Initialize(&argc, argv);
    QCoreApplication application(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
