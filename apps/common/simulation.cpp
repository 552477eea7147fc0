#include "common/simulation.h"

namespace common {

Simulation::Simulation(platform::Files& machineFiles) : files(machineFiles) {
    line.SetPace(platform::virt::Pace::BaudRate);
    unit.UseFiles(files);
}

std::string Simulation::Load(const CommandLine& commandLine) {
    if (!commandLine.scenario) {
        const sim::Answer answer = unit.Load(sim::StandardScenario());
        return answer.error;
    }
    const std::optional<std::string> text = files.Read(*commandLine.scenario, platform::Files::DefaultLimit);
    if (!text) return "the scenario \"" + commandLine.scenario->string() + "\" cannot be read";
    const sim::Answer answer = unit.Load(*text);
    return answer.ok ? std::string() : commandLine.scenario->string() + ": " + answer.error;
}

}  // namespace common
