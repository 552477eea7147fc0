#include "console/real_console.h"

#include <QCoreApplication>
#include <optional>

#include "common/setup.h"
#include "common/simulation.h"
#include "console/qt_session.h"
#include "platform/qt/qt_host.h"
#include "platform/qt/world_pump.h"
#include "program/program.h"
#include "program/start.h"

namespace console {

int RunInRealTime(int argc, char** argv, const common::CommandLine& line, const platform::Path& executable) {
    QCoreApplication application(argc, argv);
    platform::qt::QtHost machine;
    const shell::Options options = common::ProgramOptions(line, executable, machine.files);
    std::optional<common::Simulation> simulation;
    if (line.simulate) {
        simulation.emplace(machine.files);
        if (const std::string wrong = simulation->Load(line, options.shipped); !wrong.empty())
            return common::Complain(common::FrontEnd::Console, wrong);
    }
    const platform::Host host = simulation ? machine.Get(simulation->line.Port(), simulation->probe) : machine.Get();
    program::Program program(host, options);
    if (!common::Trace(program, line))
        return common::Complain(common::FrontEnd::Console, "the trace file cannot be written");
    program::Start(program);

    std::optional<QtSession> session;
    const auto endWhenFinished = [&] {
        if (session->Finished()) QCoreApplication::exit(common::ExitStatus(program));
    };
    session.emplace(program, simulation ? &simulation->unit : nullptr, endWhenFinished);
    const auto afterEvent = [&] {
        session->Advance();
        endWhenFinished();
    };
    machine.after.Set(afterEvent);
    std::optional<platform::qt::WorldPump> pump;
    if (simulation) pump.emplace(simulation->world, machine.after);
    QTimer::singleShot(0, &application, afterEvent);
    const int status = QCoreApplication::exec();
    machine.after.Set({});
    return status;
}

}  // namespace console
