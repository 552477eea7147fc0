#include "console/virtual_console.h"

#include <algorithm>
#include <cstdio>

#include "common/setup.h"
#include "common/simulation.h"
#include "console/session.h"
#include "platform/real/instance_lock.h"
#include "platform/real/real_files.h"
#include "program/program.h"
#include "program/start.h"

namespace console {

namespace {

// Lets the program work until something may have come of what is waited for: to the end of one instant, unless it holds
// before that.
void Work(Interpreter& interpreter, platform::virt::World& world) {
    do {
        world.RunOne(interpreter.Deadline());
    } while (!interpreter.Holds() && world.NextDue() <= world.ElapsedMicros());
}

void Converse(Session& session, Interpreter& interpreter, platform::virt::World& world) {
    while (!session.Finished()) {
        if (interpreter.Waiting()) {
            Work(interpreter, world);
        } else if (session.Hungry()) {
            const std::string piece = ReadInput();
            if (piece.empty()) session.EndOfInput();
            session.Feed(piece);
        }
        session.Advance();
    }
}

}  // namespace

int RunOnVirtualTime(const common::CommandLine& line, const platform::Path& executable) {
    platform::real::RealFiles files;
    platform::real::InstanceLock instance;
    platform::virt::CountedSound sound;
    const shell::Options options = common::ProgramOptions(line, executable, files);
    common::Simulation simulation(files);
    if (const std::string wrong = simulation.Load(line, options.shipped); !wrong.empty())
        return common::Complain(common::FrontEnd::Console, wrong);
    const platform::Host host{
        simulation.world, simulation.world, simulation.line.Port(), simulation.probe, files, sound, instance};
    program::Program program(host, options);
    if (!common::Trace(program, line))
        return common::Complain(common::FrontEnd::Console, "the trace file cannot be written");
    program::Start(program);
    Interpreter interpreter(program, &simulation.unit);
    Session session(interpreter, PrintLine);
    Converse(session, interpreter, simulation.world);
    return common::ExitStatus(program);
}

}  // namespace console
