#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include "platform/real/real_files.h"
#include "platform/virtual/host.h"
#include "program/program.h"
#include "program/start.h"
#include "sim/unit.h"
#include "support/temporary_folder.h"

namespace support {

// The whole program on virtual time, in a new folder, with a simulated unit on the line. Start is the test's own call,
// so that it can prepare the folder first.
struct Simulated {
    Simulated() : unit(host.world, host.world, host.line.Far()), program(host.Get(), MakeOptions()) {
        unit.UseFiles(files);
        host.line.SetPace(platform::virt::Pace::BaudRate);
    }

    bool Start() { return program::Start(program); }
    void Run(std::int64_t milliseconds) { host.world.RunFor(milliseconds); }
    // Lets time pass until the condition holds; false when it does not within the limit.
    template <class Condition>
    bool RunUntil(Condition holds, std::int64_t milliseconds) {
        const std::int64_t end = host.world.ElapsedMicros() + milliseconds * 1000;
        while (!holds()) {
            const std::int64_t next = host.world.NextDue();
            if (next > end) return false;
            host.world.RunUntil(next);
        }
        return true;
    }
    // Starts and waits until the unit has been recognised and its stream is live.
    bool Connect() {
        return Start() && RunUntil([this] { return program.link.state.FlussoAttivo == shell::True; }, 60000);
    }
    // One line of the scenario language; throws, and so fails the test, where the unit refuses it.
    sim::Answer Sim(const std::string& line) {
        sim::Answer answer = unit.Line(line);
        if (!answer.ok) throw std::runtime_error(line + ": " + answer.error);
        return answer;
    }
    std::string Text(const char* key, const char* section) { return program.shell.TestoLingua(key, section); }

    shell::Options MakeOptions() {
        shell::Options options;
        options.folder = folder.Path();
        options.shipped = MARLOVENT_DATA;
        return options;
    }

    TemporaryFolder folder;
    platform::real::RealFiles files;
    platform::virt::VirtualHost host{files};
    sim::Unit unit;
    program::Program program;
};

}  // namespace support
