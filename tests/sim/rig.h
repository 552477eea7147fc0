#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/virtual/line.h"
#include "platform/virtual/world.h"
#include "sim/bytes.h"
#include "sim/unit.h"

// The program's end of a line with the simulated unit on the other, on virtual time. The stream is off unless asked
// for.
struct Rig {
    explicit Rig(std::uint32_t seed = 1) : unit(world, world, line.Far(), seed) {
        line.Port().SetDevice("COM1");
        line.Port().SetSettings("38400,N,8,1");
        line.Port().Open();
        Say("stream off");
    }

    sim::Answer Say(std::string_view text) { return unit.Line(text); }
    std::string Text(std::string_view text, std::string_view key) {
        for (const auto& [name, value] : Say(text).values) {
            if (name == key && std::holds_alternative<std::string>(value)) return std::get<std::string>(value);
        }
        return {};
    }
    std::int64_t Figure(std::string_view text, std::string_view key) {
        for (const auto& [name, value] : Say(text).values) {
            if (name == key && std::holds_alternative<std::int64_t>(value)) return std::get<std::int64_t>(value);
        }
        return -1;
    }
    std::string Received(std::int64_t milliseconds = 0) {
        world.RunFor(milliseconds);
        return line.Port().Input();
    }
    // Sends the text as a frame; what came back within the time, without STX and ETX.
    std::string Ask(std::string_view command, std::int64_t milliseconds = 0) {
        line.Port().Output(sim::Framed(command));
        const std::string bytes = Received(milliseconds);
        const bool framed = bytes.size() >= 2 && bytes.front() == sim::Stx && bytes.back() == sim::Etx;
        return framed ? bytes.substr(1, bytes.size() - 2) : bytes;
    }
    // The frames that arrive within the time, STX and ETX included; what stands between frames is left out.
    std::vector<std::string> Frames(std::int64_t milliseconds) {
        std::vector<std::string> out;
        std::string frame;
        for (const char c : Received(milliseconds)) {
            if (c == sim::Stx) frame.clear();
            frame += c;
            if (c == sim::Etx) out.push_back(frame);
        }
        return out;
    }

    platform::virt::World world;
    platform::virt::Line line{world};
    sim::Unit unit;
};

// A field of a live frame by its position, counted from 1.
inline std::string FieldOf(const std::string& frame, std::size_t position, std::size_t width) {
    return position - 1 < frame.size() ? frame.substr(position - 1, width) : std::string();
}
