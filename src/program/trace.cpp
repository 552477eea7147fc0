#include "program/trace.h"

#include <cstdio>
#include <string>

#include "program/program.h"

namespace program {

namespace {

std::string Escaped(std::string_view frame) {
    std::string out;
    for (const char c : frame) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= ' ' && byte < 0x7F && c != '\\') {
            out += c;
            continue;
        }
        char code[5];
        std::snprintf(code, sizeof code, "\\x%02X", static_cast<unsigned>(byte));
        out += code;
    }
    return out;
}

}  // namespace

void TraceTo(Program& program, const platform::Path& file) {
    platform::Files& files = program.shell.host.files;
    files.Write(file, {});
    const std::int64_t start = eculink::NowMs(program.link);
    program.link.trace = [&program, &files, file, start](eculink::Direction direction, std::string_view frame) {
        const char* arrow = direction == eculink::Direction::Sent ? " > " : " < ";
        files.Append(file, std::to_string(eculink::NowMs(program.link) - start) + arrow + Escaped(frame) + "\n");
    };
}

}  // namespace program
