// Lines of the console, as scripts, pipes and people leave them, on the whole program with the simulated unit.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "common/simulation.h"
#include "console/interpreter.h"
#include "console/session.h"
#include "memory_files.h"
#include "platform/real/real_files.h"
#include "program/program.h"
#include "program/start.h"

namespace {

constexpr const char* ProgramFolder = "marlovent";
constexpr std::int64_t LongestRun = 12'000'000;  // microseconds of virtual time for one input

void Require(bool holds) {
    if (!holds) std::abort();
}

// What ships with the program, read once.
const MemoryFiles& Shipped() {
    static const MemoryFiles shipped = [] {
        MemoryFiles files;
        platform::real::RealFiles disk;
        for (const char* name : {"ITALIANO.LNG", "INGLESE.LNG"}) {
            files.Write(platform::Path(ProgramFolder) / name,
                        disk.Read(platform::Path(MARLOVENT_DATA) / name, platform::Files::DefaultLimit).value());
        }
        return files;
    }();
    return shipped;
}

// Every answer is one line and one object that says whether it is ok, and why not.
void Check(std::string_view answer) {
    Require(answer.find('\n') == std::string_view::npos);
    const console::Json json = console::Json::parse(answer, nullptr, false);
    Require(json.is_object() && json.contains("ok") && json["ok"].is_boolean());
    Require(json["ok"] == true || (json.contains("error") && json["error"].is_string()));
}

// Each input begins in a new program directory, so that it can be repeated alone.
struct Machine {
    Machine() { options.folder = ProgramFolder; }

    MemoryFiles files{Shipped()};
    platform::virt::FixedInstance instance;
    platform::virt::CountedSound sound;
    common::Simulation simulation{files};
    shell::Options options;
    platform::Host host{simulation.world, simulation.world, simulation.line.Port(), simulation.probe, files, sound,
                        instance};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Machine machine;
    program::Program program(machine.host, machine.options);
    program::Start(program);
    console::Interpreter interpreter(program, &machine.simulation.unit);
    console::Session session(interpreter, Check);
    platform::virt::World& world = machine.simulation.world;
    session.Feed({reinterpret_cast<const char*>(data), size});
    session.EndOfInput();
    session.Advance();
    while (!session.Finished() && world.ElapsedMicros() < LongestRun) {
        world.RunUntil(std::min(world.NextDue(), interpreter.Deadline()));
        session.Advance();
    }
    return 0;
}
