#pragma once

#include <string>

#include "link/frames/build.h"

namespace support {

// A live frame as the unit streams it; the members stand in the order of the wire.
struct LiveFrame {
    std::string giri = " 850";
    std::string lambda = " 205";
    std::string tps = " 120";
    std::string map = " 300";
    std::string temperatura = " 512";
    std::string livello = " 600";
    std::string step = "130";
    std::string cstec = "  3";
    char digit2 = '0';
    char statoAA = 'A';
    char macro = '1';
    char riccoMagro = 'R';
    char unused = '0';
    char digit4 = '0';
    char digit1 = '0';
    char digit3 = '1';
    std::string zone = " 12";
    std::string stored = "  7";
    std::string p1 = " 400";

    // 47 characters, without the last field.
    std::string Short() const { return frames::Frame(Body()); }
    // 51 characters.
    std::string Long() const { return frames::Frame(Body() + p1); }

  private:
    std::string Body() const {
        return "D" + giri + lambda + tps + map + temperatura + livello + step + cstec + digit2 + statoAA + macro +
               riccoMagro + unused + digit4 + digit1 + digit3 + zone + stored;
    }
};

}  // namespace support
