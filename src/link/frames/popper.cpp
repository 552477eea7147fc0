#include "link/frames/popper.h"

#include "link/frames/build.h"

namespace frames {

namespace {

constexpr std::size_t Unfinished = 1U << 20U;
constexpr std::size_t LongestFrame = 4096;  // beyond any frame that a unit sends

}  // namespace

bool TakeFrame(std::string& text, std::string& frame) {
    const std::size_t start = text.find(Stx);
    if (start == std::string::npos) return false;
    text.erase(0, start);
    const std::size_t end = text.find(Etx);
    if (end == std::string::npos) return false;
    frame.assign(text, 0, end + 1);
    text.erase(0, end + 1);
    frame.erase(0, frame.rfind(Stx));
    return true;
}

void BoundText(std::string& text) {
    if (text.size() <= Unfinished) return;
    const std::size_t first = text.find(Stx);
    if (first != std::string::npos && text.find(Etx, first) != std::string::npos) return;
    const std::size_t last = text.rfind(Stx);
    text = last == std::string::npos ? std::string() : text.substr(last, LongestFrame);
}

}  // namespace frames
