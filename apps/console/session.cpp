#include "console/session.h"

#include <array>
#include <cerrno>
#include <cstdio>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace console {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";  // that editors put in front of a script
constexpr std::size_t PieceSize = 4096;

}  // namespace

void Session::Feed(std::string_view bytes) {
    input_ += bytes;
    if (!atStart_ || input_.size() < ByteOrderMark.size()) return;
    atStart_ = false;
    if (input_.starts_with(ByteOrderMark)) input_.erase(0, ByteOrderMark.size());
}

// The next whole line, without its end; the last one may lack it.
std::optional<std::string> Session::NextLine() {
    const std::size_t end = input_.find('\n');
    if (end == std::string::npos && input_.size() > LongestLine) {
        tooLong_ = true;
        input_.clear();
    }
    if (end == std::string::npos && (!inputEnded_ || (input_.empty() && !tooLong_))) return std::nullopt;
    std::string line = input_.substr(0, end);
    input_.erase(0, end == std::string::npos ? end : end + 1);
    return line;
}

void Session::DoLine(const std::string& line) {
    if (tooLong_ || line.size() > LongestLine) {
        tooLong_ = false;
        return print_(OnOneLine(Failure("The line is too long.")));
    }
    if (const auto answer = interpreter_.Do(line)) print_(*answer);
}

void Session::Advance() {
    if (advancing_) return;
    advancing_ = true;
    if (const auto answer = interpreter_.Poll()) print_(*answer);
    while (!interpreter_.Waiting() && !interpreter_.Finished()) {
        const auto line = NextLine();
        if (!line) break;
        DoLine(*line);
    }
    advancing_ = false;
}

bool Session::Hungry() const {
    return !interpreter_.Waiting() && !inputEnded_ && input_.find('\n') == std::string::npos;
}

bool Session::Finished() const {
    return interpreter_.Finished() || (inputEnded_ && input_.empty() && !tooLong_ && !interpreter_.Waiting());
}

void PrintLine(std::string_view answer) {
    std::fwrite(answer.data(), 1, answer.size(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

std::string ReadInput() {
    std::array<char, PieceSize> piece;
    while (true) {
#ifdef _WIN32
        const auto count = _read(0, piece.data(), static_cast<unsigned>(piece.size()));
#else
        const auto count = ::read(STDIN_FILENO, piece.data(), piece.size());
#endif
        if (count > 0) return std::string(piece.data(), static_cast<std::size_t>(count));
        if (count == 0 || errno != EINTR) return {};
    }
}

}  // namespace console
