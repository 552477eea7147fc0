#include "command_input.h"

#include <unistd.h>

#include <array>
#include <cerrno>

bool CommandInput::Read(const Handler& handler) {
    std::array<char, 4096> buffer{};
    const ssize_t count = ::read(descriptor_, buffer.data(), buffer.size());
    if (count < 0) return errno == EAGAIN || errno == EINTR;
    if (count == 0) {
        if (!text_.empty()) handler(text_);
        text_.clear();
        return false;
    }
    for (const char c : std::string_view(buffer.data(), static_cast<std::size_t>(count))) {
        if (c == '\n') {
            std::string line;
            line.swap(text_);
            handler(line);
        } else if (text_.size() < LongestLine) {
            text_ += c;
        }
    }
    return true;
}
