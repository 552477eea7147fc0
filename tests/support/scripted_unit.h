#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "link/frames/build.h"
#include "link/frames/numbers.h"
#include "memory/image.h"
#include "support/live_frame.h"
#include "support/machine.h"

namespace support {

// The program with a unit whose every reply is in the test's hands: byte for byte, or none at all. Left alone it
// answers as a sound unit does.
struct ScriptedUnit : Machine {
    // Starts the program, lets it recognise the unit and read it; the stream is live afterwards.
    bool Connect() {
        if (!Start()) return false;
        Take(LiveFrame().Long());
        if (!Converse([this] { return State().StatoCmd == eculink::Idle; })) return false;
        Take(LiveFrame().Long());
        return State().FlussoAttivo == shell::True;
    }

    // The good reply to a command frame.
    std::string Answer(std::string_view frame) const {
        const char letter = frame.at(1);
        if (letter == 'X') return frames::Frame("x" + Digits(version));
        if (letter == 'L' || letter == 'O' || letter == 'R') {
            const int address = static_cast<int>(frames::ValoreNum(frame.substr(2, 4)));
            const int bytes = static_cast<int>(frames::ValoreNum(frame.substr(6, 4)));
            return frames::Frame(Small(letter) + Cells(address, bytes));
        }
        return frames::Frame(Small(letter) + "ok");
    }
    // Answers what the program has asked for; false when it has asked nothing.
    bool Step() {
        const std::string sent = Sent();
        if (sent.empty()) return false;
        asked.push_back(sent);
        Take(Answer(sent));
        return true;
    }
    // Answers everything until the condition holds; false when the program stops asking before.
    bool Converse(const std::function<bool()>& until) {
        while (!until()) {
            if (!Step()) return false;
        }
        return true;
    }
    // Puts digits into the cells of the unit.
    void Put(int address, std::string_view digits) { memory::SetCella(image, address, digits); }

    static std::string CountedImage() {
        constexpr int Period = 250;
        std::string digits;
        for (int byte = 0; byte < 2 * memory::AreaBytes; ++byte)
            digits += frames::Hex(static_cast<std::uint32_t>(byte % Period), 1);
        return digits;
    }

    std::string version = "01.04 A001";
    std::string image = CountedImage();  // byte number B holds B modulo 250
    std::vector<std::string> asked;      // every frame answered

  private:
    static std::string Small(char letter) { return {static_cast<char>(letter - 'A' + 'a')}; }
    static std::string Digits(std::string_view text) {
        std::string digits;
        for (const char c : text) digits += frames::Hex(static_cast<unsigned char>(c), 1);
        return digits;
    }
    // Cells of the permanent memory; those of the working memory are all 0.
    std::string Cells(int address, int bytes) const {
        std::string digits;
        for (int i = 0; i < bytes; ++i) {
            const int cell = address + i;
            const bool permanent = memory::IsInternal(cell) || cell < memory::AreaBytes;
            digits += permanent ? image.substr(memory::ImagePosition(cell), 2) : "00";
        }
        return digits;
    }
};

}  // namespace support
