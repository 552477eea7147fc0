#include "sim/scenario.h"

#include <algorithm>

namespace sim {

namespace {

constexpr std::int64_t ShortestLoop = 1000;
constexpr std::size_t MostEvents = 100000;
constexpr std::string_view LoopWord = "loop";

Parsed ParseLoop(const Words& arguments) {
    if (!arguments.empty()) return Parsed::Wrong("usage: loop");
    return Action([](Parts& parts) -> Answer {
        RestartScenario(parts);
        return {};
    });
}

Parsed ParseHelp(const Words& arguments);

const std::vector<Verb>& GeneralVerbs() {
    static const std::vector<Verb> verbs{
        {LoopWord, "", ParseLoop},
        {"help", "", ParseHelp},
    };
    return verbs;
}

using VerbTable = const std::vector<Verb>& (*)();
constexpr std::array<VerbTable, 4> Tables{EngineVerbs, MemoryVerbs, LineVerbs, GeneralVerbs};

const Verb* FindVerb(std::string_view word) {
    for (const VerbTable table : Tables) {
        const auto found =
            std::find_if(table().begin(), table().end(), [word](const Verb& verb) { return verb.word == word; });
        if (found != table().end()) return &*found;
    }
    return nullptr;
}

Parsed ParseHelp(const Words& arguments) {
    if (!arguments.empty()) return Parsed::Wrong("usage: help");
    return Action([](Parts&) -> Answer {
        std::vector<std::string> lines;
        for (const VerbTable table : Tables) {
            for (const Verb& verb : table()) {
                lines.push_back(std::string(verb.word) + (verb.usage.empty() ? "" : " ") + std::string(verb.usage));
            }
        }
        return {true, {}, {{"lines", std::move(lines)}}};
    });
}

void Put(Parts& parts, std::int64_t millis, const Action& action) {
    parts.script.After(millis, [&parts, action] { action(parts); });
}

std::string AtLine(std::size_t number, const std::string& reason) {
    return "line " + std::to_string(number) + ": " + reason;
}

}  // namespace

Parsed ParseLine(std::string_view line) {
    auto words = SplitWords(line);
    if (!words) return Parsed::Wrong("a quote is not closed");
    if (words->empty()) return Action{};
    std::optional<std::int64_t> millis;
    if (words->front() == "at") {
        if (words->size() < 3) return Parsed::Wrong("usage: at TIME COMMAND ...");
        millis = Time((*words)[1]);
        if (!millis) return Parsed::Wrong(InQuotes((*words)[1]) + " is no time: 12, 2.5, 300ms, 1:30");
        words->erase(words->begin(), words->begin() + 2);
    }
    const std::string word = words->front();
    const Verb* const verb = FindVerb(word);
    if (verb == nullptr) return Parsed::Wrong("unknown command " + InQuotes(word));
    if (word == LoopWord && millis && *millis < ShortestLoop) return Parsed::Wrong("a loop takes at least one second");
    words->erase(words->begin());
    Parsed out = verb->parse(*words);
    out.millis = millis;
    if (!out.error.empty() || out.action) return out;
    return Parsed::Wrong("usage: " + word + " " + std::string(verb->usage));
}

Answer DoLine(Parts& parts, std::string_view line) {
    const Parsed parsed = ParseLine(line);
    if (!parsed.error.empty()) return Refusal(parsed.error);
    if (!parsed.action) return {};
    if (!parsed.millis) return parsed.action(parts);
    if (parts.script.Size() >= MostEvents) return Refusal("too many lines are waiting for their time");
    Put(parts, *parsed.millis, parsed.action);
    return {};
}

void RestartScenario(Parts& parts) {
    parts.script.Clear();
    for (const TimedAction& timed : parts.scenario) {
        parts.script.After(timed.millis, [&parts, action = timed.action] { action(parts); });
    }
}

Answer LoadScenario(Parts& parts, std::string_view text) {
    std::vector<std::pair<std::size_t, Parsed>> lines;
    for (std::size_t number = 1; !text.empty(); ++number) {
        const std::size_t end = text.find('\n');
        Parsed parsed = ParseLine(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (!parsed.error.empty()) return Refusal(AtLine(number, parsed.error));
        if (parsed.action) lines.emplace_back(number, std::move(parsed));
        if (lines.size() > MostEvents) return Refusal(AtLine(number, "the scenario is too long"));
    }
    parts.scenario.clear();
    for (const auto& [number, line] : lines) {
        if (line.millis) parts.scenario.push_back({*line.millis, [action = line.action](Parts& on) { action(on); }});
    }
    RestartScenario(parts);
    for (const auto& [number, line] : lines) {
        if (line.millis) continue;
        const Answer answer = line.action(parts);
        if (!answer.ok) return Refusal(AtLine(number, answer.error));
    }
    return {};
}

}  // namespace sim
