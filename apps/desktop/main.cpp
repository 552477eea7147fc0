#include <QApplication>
#include <QTimer>
#include <optional>
#include <string>
#include <vector>

#include "common/options.h"
#include "common/setup.h"
#include "common/simulation.h"
#include "console/qt_session.h"
#include "desktop/windows.h"
#include "platform/qt/qt_host.h"
#include "platform/qt/world_pump.h"
#include "platform/real/real_files.h"
#include "program/program.h"
#include "program/start.h"
#include "shell/settings.h"

namespace {

using common::FrontEnd;

// The look that MARLO.INI asks for; it is read and never written.
const desktop::Theme& ThemeOf(program::Program& program) {
    const std::string word = shell::ReadMarlo(program.shell, "ASPETTO", "Tema", "auto");
    return desktop::ChooseTheme(word, QApplication::palette());
}

int Run(QApplication& application, const common::CommandLine& line, const shell::Options& options,
        common::Simulation* simulation) {
    platform::qt::QtHost machine;
    const platform::Host host =
        simulation != nullptr ? machine.Get(simulation->line.Port(), simulation->probe) : machine.Get();
    program::Program program(host, options);
    if (!common::Trace(program, line)) return common::Complain(FrontEnd::Desktop, "the trace file cannot be written");

    const desktop::Theme& theme = ThemeOf(program);
    desktop::ApplyTheme(theme);
    desktop::Windows windows(program, theme);
    program::Start(program);

    std::optional<console::QtSession> session;
    const auto end = [&] { QCoreApplication::exit(common::ExitStatus(program)); };
    const auto follow = [&] {
        windows.Sync();
        if (program.shell.state.ended || (session && session->Finished())) end();
    };
    if (line.console) session.emplace(program, simulation != nullptr ? &simulation->unit : nullptr, follow);
    program.shell.hooks.End = end;
    machine.after.Set([&] {
        if (session) session->Advance();
        follow();
    });
    std::optional<platform::qt::WorldPump> pump;
    if (simulation != nullptr) pump.emplace(simulation->world, machine.after);
    QTimer::singleShot(0, &application, follow);
    const int status = QApplication::exec();
    machine.after.Set({});
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    const common::Reading reading =
        common::ReadCommandLine(FrontEnd::Desktop, std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
    if (!reading.line) return common::Tell(reading);
    // A scenario that is no good is said before the toolkit looks for a display.
    platform::real::RealFiles files;
    const shell::Options options =
        common::ProgramOptions(*reading.line, common::ExecutableFolder(argc > 0 ? argv[0] : nullptr), files);
    std::optional<common::Simulation> simulation;
    if (reading.line->simulate) {
        simulation.emplace(files);
        if (const std::string wrong = simulation->Load(*reading.line, options.shipped); !wrong.empty())
            return common::Complain(FrontEnd::Desktop, wrong);
    }
    // The only arguments left are the program's own: what the toolkit would read from them is not offered.
    int count = 1;
    QApplication application(count, argv);
    return Run(application, *reading.line, options, simulation ? &*simulation : nullptr);
}
