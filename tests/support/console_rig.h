#pragma once

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include <unistd.h>

#include "common/simulation.h"
#include "console/interpreter.h"
#include "console/json.h"
#include "platform/real/instance_lock.h"
#include "platform/real/real_files.h"
#include "platform/virtual/host.h"
#include "program/program.h"
#include "program/start.h"

// The whole program on virtual time with the simulated unit, driven through the console, in a program directory of its
// own that is gone afterwards.
struct ConsoleRig {
    explicit ConsoleRig(shell::Variant variant = shell::Variant::None) {
        static int count = 0;
        options.folder = std::filesystem::temp_directory_path() /
                         ("marlovent-test-" + std::to_string(::getpid()) + "-" + std::to_string(count++));
        options.shipped = MARLOVENT_DATA;
        options.variant = variant;
        std::filesystem::create_directories(options.folder);
    }
    ~ConsoleRig() {
        std::error_code away;
        std::filesystem::current_path(before, away);
        interpreter.reset();
        program.reset();
        std::error_code ignored;
        std::filesystem::remove_all(options.folder, ignored);
    }
    ConsoleRig(const ConsoleRig&) = delete;
    ConsoleRig& operator=(const ConsoleRig&) = delete;

    // Files of the program directory are written before this.
    ConsoleRig& Start() {
        const platform::Host host{
            simulation.world, simulation.world, simulation.line.Port(), simulation.probe, files, sound, instance};
        program = std::make_unique<program::Program>(host, options);
        started = program::Start(*program);
        interpreter = std::make_unique<console::Interpreter>(*program, &simulation.unit);
        return *this;
    }

    // A directory that holds settings is not new: nothing is put into it at the start.
    void CopyLanguages() {
        for (const std::string& name : files.List(options.shipped, ".LNG")) {
            files.Copy(options.shipped / name, options.folder / name);
        }
    }

    // The answer to one line, once the time that it asks for has passed; null when the line gets none.
    console::Json Say(std::string_view line) {
        std::optional<std::string> answer = interpreter->Do(line);
        while (!answer && interpreter->Waiting()) {
            simulation.world.RunUntil(std::min(simulation.world.NextDue(), interpreter->Deadline()));
            answer = interpreter->Poll();
        }
        return answer ? console::Json::parse(*answer) : console::Json();
    }

    std::filesystem::path before = std::filesystem::current_path();
    shell::Options options;
    platform::real::RealFiles files;
    platform::real::InstanceLock instance;
    platform::virt::CountedSound sound;
    common::Simulation simulation{files};
    std::unique_ptr<program::Program> program;
    std::unique_ptr<console::Interpreter> interpreter;
    bool started = false;
};
