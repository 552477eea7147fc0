#include "options.h"

#include <array>
#include <charconv>
#include <string_view>

namespace {

// One option: its word, what follows it in the help text (empty: nothing does), what it means.
struct OptionRow {
    std::string_view word;
    std::string_view value;
    std::string_view meaning;
    bool (*take)(Options& options, const std::string& value);
};

bool TakeSeed(Options& options, const std::string& value) {
    const char* const end = value.data() + value.size();
    const auto [stop, fault] = std::from_chars(value.data(), end, options.seed);
    return fault == std::errc() && stop == end;
}

bool TakeText(std::string& into, const std::string& value) {
    into = value;
    return !value.empty();
}

bool TakeLine(Options& options, std::string line) {
    options.lines.push_back(std::move(line));
    return true;
}

constexpr auto Rows = std::to_array<OptionRow>({
    {"--link", "PATH", "make a symbolic link to the device, removed at the end",
     [](Options& o, const std::string& v) { return TakeText(o.link, v); }},
    {"--scenario", "FILE", "what the unit and the engine do; without it a warm engine at idle",
     [](Options& o, const std::string& v) { return TakeText(o.scenario, v); }},
    {"--blank", "", "a unit whose memory is erased, its switch on petrol",
     [](Options& o, const std::string&) { return TakeLine(o, "image blank") && TakeLine(o, "switch petrol"); }},
    {"--version-text", "TEXT", "the version of the unit's program, at most 10 characters",
     [](Options& o, const std::string& v) {
         return v.find('"') == std::string::npos && TakeLine(o, "version \"" + v + "\"");
     }},
    {"--rate", "N", "live frames a second",
     [](Options& o, const std::string& v) { return TakeLine(o, "rate \"" + v + "\""); }},
    {"--seed", "N", "start of the noise, so that a run can be repeated", TakeSeed},
    {"--commands", "", "take scenario lines from standard input and answer each with one line; its end ends the unit",
     [](Options& o, const std::string&) { return o.commands = true; }},
    {"--help", "", "show this", [](Options& o, const std::string&) { return o.help = true; }},
    {"--version", "", "show the program's version", [](Options& o, const std::string&) { return o.version = true; }},
});

const OptionRow* Find(std::string_view word) {
    for (const OptionRow& row : Rows) {
        if (row.word == word) return &row;
    }
    return nullptr;
}

}  // namespace

Options ReadOptions(const std::vector<std::string>& arguments, std::string& error) {
    Options out;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::size_t equals = arguments[i].find('=');
        const std::string word = arguments[i].substr(0, equals);
        const OptionRow* const row = Find(word);
        if (row == nullptr || (row->value.empty() && equals != std::string::npos)) {
            error = "unknown option \"" + arguments[i] + "\"";
            return out;
        }
        std::string value;
        if (equals != std::string::npos) {
            value = arguments[i].substr(equals + 1);
        } else if (!row->value.empty()) {
            if (++i == arguments.size()) {
                error = word + " wants " + std::string(row->value);
                return out;
            }
            value = arguments[i];
        }
        if (!row->take(out, value)) {
            error = word + ": \"" + value + "\" is no " + std::string(row->value);
            return out;
        }
    }
    return out;
}

std::string HelpText() {
    constexpr std::size_t column = 22;
    std::string out =
        "centralina: the simulated unit on a pseudo-terminal\n\nIt prints \"device NAME\" and answers there until it "
        "is "
        "stopped.\n\n";
    for (const OptionRow& row : Rows) {
        std::string left = "  " + std::string(row.word) + (row.value.empty() ? "" : " ") + std::string(row.value);
        left.resize(left.size() < column ? column : left.size() + 1, ' ');
        out += left + std::string(row.meaning) + "\n";
    }
    return out;
}
