#pragma once

#include <string>

#include "common/options.h"
#include "platform/files.h"
#include "platform/virtual/host.h"
#include "platform/virtual/line.h"
#include "platform/virtual/world.h"
#include "sim/unit.h"

namespace common {

// The simulated unit on an in-memory line of its own virtual time. The program holds `line.Port()`; whoever owns the
// simulation lets the world's time pass.
struct Simulation {
    explicit Simulation(platform::Files& files);

    // Loads the scenario of the command line: a file, or by its bare name one of those that ship with the program; none
    // is the standard one. Gives an empty text, or what is wrong with it.
    std::string Load(const CommandLine& commandLine, const platform::Path& shipped);

    platform::Files& files;
    platform::virt::World world;
    platform::virt::Line line{world};
    platform::virt::FixedProbe probe;
    sim::Unit unit{world, world, line.Far()};
};

}  // namespace common
