// Conversations with the console, written down with the answers that they must get: tests/conversations/*.txt.
//
//   # a remark
//   ! file CONFIG.INI [SERIALE]|COM=COM3     a file of a directory that is not new, "|" for a line end
//   ! variant QT                             the variant word
//   > press ConfSer Salva                    a command
//   < {"ok":true}                            what its answer holds at least; without it, that it is ok
//
// In an expected answer the text "*" stands for any value.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "support/console_rig.h"
#include "support/json_subset.h"

namespace {

namespace fs = std::filesystem;

struct Step {
    int number = 0;
    std::string command;
    console::Json expected = {{"ok", true}};
};

struct Conversation {
    shell::Variant variant = shell::Variant::None;
    std::vector<std::pair<std::string, std::string>> files;
    std::vector<Step> steps;
};

void Direct(Conversation& conversation, const std::string& text) {
    std::istringstream words(text);
    std::string what;
    std::string name;
    std::string rest;
    words >> what >> name;
    std::getline(words >> std::ws, rest);
    if (what == "variant" && (name == "QT" || name == "AVX")) {
        conversation.variant = name == "QT" ? shell::Variant::Qt : shell::Variant::Avx;
    } else if (what == "file") {
        std::replace(rest.begin(), rest.end(), '|', '\n');
        conversation.files.emplace_back(name, rest + "\n");
    } else {
        FAIL() << "no such directive: " << text;
    }
}

Conversation ReadConversation(const fs::path& file) {
    Conversation out;
    std::ifstream in(file);
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        if (line.empty() || line.front() == '#') continue;
        const std::string text = line.size() > 2 ? line.substr(2) : std::string();
        if (line.front() == '!') {
            Direct(out, text);
        } else if (line.front() == '>') {
            out.steps.push_back({number, text});
        } else if (line.front() == '<' && !out.steps.empty()) {
            out.steps.back().expected = console::Json::parse(text, nullptr, false);
            EXPECT_FALSE(out.steps.back().expected.is_discarded()) << file << ":" << number << " is no JSON";
        } else {
            ADD_FAILURE() << file << ":" << number << " is neither command nor answer";
        }
    }
    return out;
}

class Conversations : public ::testing::TestWithParam<std::string> {};

TEST_P(Conversations, GetTheAnswersWrittenDown) {
    const fs::path file = fs::path(MARLOVENT_CONVERSATIONS) / (GetParam() + ".txt");
    const Conversation conversation = ReadConversation(file);
    ASSERT_FALSE(conversation.steps.empty()) << file;
    ConsoleRig rig(conversation.variant);
    if (!conversation.files.empty()) rig.CopyLanguages();
    for (const auto& [name, content] : conversation.files) std::ofstream(rig.options.folder / name) << content;
    rig.Start();
    for (const Step& step : conversation.steps) {
        const console::Json answer = rig.Say(step.command);
        const std::string mismatch = Mismatch(answer, step.expected);
        ASSERT_EQ(mismatch, "") << file.string() << ":" << step.number << ": " << step.command << "\n" << answer;
    }
}

std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(MARLOVENT_CONVERSATIONS)) {
        if (entry.path().extension() == ".txt") names.push_back(entry.path().stem().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

INSTANTIATE_TEST_SUITE_P(All, Conversations, ::testing::ValuesIn(Names()), [](const auto& name) { return name.param; });

}  // namespace
