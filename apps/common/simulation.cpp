#include "common/simulation.h"

#include <filesystem>
#include <system_error>

namespace common {

namespace {

constexpr const char* ScenarioFolder = "scenarios";
constexpr const char* ScenarioExtension = ".scn";

}  // namespace

Simulation::Simulation(platform::Files& machineFiles) : files(machineFiles) {
    line.SetPace(platform::virt::Pace::BaudRate);
    std::error_code error;
    unit.UseFiles(files, std::filesystem::current_path(error));
}

std::string Simulation::Load(const CommandLine& commandLine, const platform::Path& shipped) {
    if (!commandLine.scenario) return unit.Load(sim::StandardScenario()).error;
    const platform::Path& scenario = *commandLine.scenario;
    std::optional<std::string> text = files.Read(scenario);
    if (!text && !shipped.empty() && !scenario.has_parent_path()) {
        text = files.Read((shipped / ScenarioFolder / scenario).replace_extension(ScenarioExtension));
    }
    if (!text) return "the scenario \"" + scenario.string() + "\" cannot be read";
    const sim::Answer answer = unit.Load(*text);
    return answer.ok ? std::string() : "the scenario \"" + scenario.string() + "\", " + answer.error;
}

}  // namespace common
