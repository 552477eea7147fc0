#include "program/trace.h"

#include <cstdio>
#include <memory>
#include <string>
#include <utility>

#include "link/frames/popper.h"
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

// The file, and the received text that has not become a frame yet.
class Tracer {
  public:
    Tracer(Program& program, platform::Path file)
        : link_(program.link), files_(program.shell.host.files), file_(std::move(file)), start_(eculink::NowMs(link_)) {
        files_.Write(file_, {});
    }

    void Hear(std::string_view bytes) {
        text_ += bytes;
        std::string frame;
        while (frames::TakeFrame(text_, frame)) Note(" < ", frame);
        frames::BoundText(text_);
    }
    void Note(const char* arrow, std::string_view frame) {
        files_.Append(file_, std::to_string(eculink::NowMs(link_) - start_) + arrow + Escaped(frame) + "\n");
    }

  private:
    eculink::Link& link_;
    platform::Files& files_;
    platform::Path file_;
    std::int64_t start_;
    std::string text_;
};

}  // namespace

void TraceTo(Program& program, const platform::Path& file) {
    auto tracer = std::make_shared<Tracer>(program, file);
    program.link.tap = [tracer](std::string_view bytes) { tracer->Hear(bytes); };
    program.link.trace = [tracer](eculink::Direction direction, std::string_view frame) {
        if (direction == eculink::Direction::Sent) tracer->Note(" > ", frame);
    };
}

}  // namespace program
