#include "platform/virtual/line.h"

#include <algorithm>

namespace platform::virt {

namespace {

constexpr std::int64_t BitsPerByte = 10;  // start, eight data bits, stop
constexpr std::int64_t MicrosPerSecond = 1000000;
constexpr std::int64_t StandardBaud = 38400;
constexpr std::size_t KeptSent = 1U << 20U;  // a test that sends more forgets what it has seen

}  // namespace

Line::Line(World& world) : world_(world) {}

template <class Deliver>
void Line::Carry(std::string_view bytes, std::int64_t& busyUntil, Deliver deliver) {
    if (pace_ == Pace::AtOnce) {
        world_.After(0, [deliver, text = std::string(bytes)] { deliver(text); });
        return;
    }
    const std::int64_t baud = port_.Baud() > 0 ? port_.Baud() : StandardBaud;
    const std::int64_t step = pace_ == Pace::BaudRate ? BitsPerByte * MicrosPerSecond / baud : 0;
    const std::int64_t now = world_.ElapsedMicros();
    busyUntil = std::max(busyUntil, now);
    for (const char c : bytes) {
        busyUntil += step;
        world_.After(busyUntil - now, [deliver, c] { deliver(std::string_view(&c, 1)); });
    }
}

bool Line::Port_::SetSettings(std::string_view settings) {
    if (!ReadLineSettings(settings, line_settings_)) return false;
    settings_ = settings;
    return true;
}

bool Line::Port_::Open() {
    fault_ = line_.present_ ? line_.refusal_ : PortFault::Absent;
    open_ = !settings_.empty() && fault_ == PortFault::None;
    if (open_) received_.clear();
    return open_;
}

PortFault Line::Port_::Fault() const {
    return open_ && !line_.present_ ? PortFault::Absent : fault_;
}

std::string Line::Port_::Input() {
    std::string out;
    out.swap(received_);
    return out;
}

bool Line::Port_::Output(std::string_view bytes) {
    if (!open_ || !line_.present_) return false;
    if (line_.sent_.size() > KeptSent) line_.sent_.clear();
    line_.sent_ += bytes;
    line_.Carry(bytes, line_.toFar_, [line = &line_](std::string_view piece) {
        if (line->Carries()) line->far_.Receive(piece);
    });
    return true;
}

void Line::Port_::Receive(std::string_view bytes) {
    if (!open_) return;
    received_ += bytes;
    if (event_) event_(EventReceived);
}

void Line::Far_::Write(std::string_view bytes) {
    line_.Carry(bytes, line_.toPort_, [line = &line_](std::string_view piece) {
        if (line->Carries()) line->port_.Receive(piece);
    });
}

void Line::Far_::Receive(std::string_view bytes) {
    if (receiver_) receiver_(bytes);
}

}  // namespace platform::virt
