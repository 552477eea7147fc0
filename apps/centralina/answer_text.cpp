#include "answer_text.h"

#include <string_view>

#include "sim/bytes.h"

namespace {

std::string Quoted(std::string_view text) {
    std::string out;
    for (const char c : text) {
        if (c == '"') {
            out += "\\x22";
        } else if (c == '\\') {
            out += c;  // the escapes of a logged frame stay readable
        } else {
            out += sim::Escaped(std::string_view(&c, 1));
        }
    }
    return out.empty() || out.find(' ') != std::string::npos ? '"' + out + '"' : out;
}

void Add(std::string& line, const std::string& key, std::string_view text) {
    line += ' ' + key + '=';
    line += text;
}

}  // namespace

std::string AnswerText(const sim::Answer& answer) {
    if (!answer.ok) return "error " + answer.error;
    std::string line = "ok";
    for (const auto& [key, value] : answer.values) {
        if (const auto* const number = std::get_if<std::int64_t>(&value)) {
            Add(line, key, std::to_string(*number));
        } else if (const auto* const text = std::get_if<std::string>(&value)) {
            Add(line, key, Quoted(*text));
        } else {
            for (const std::string& item : std::get<std::vector<std::string>>(value)) Add(line, key, Quoted(item));
        }
    }
    return line;
}
