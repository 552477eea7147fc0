#pragma once

namespace shell {

// Flags are whole numbers with -1 for true and 0 for false, as files and the console show them.
inline constexpr int True = -1;
inline constexpr int False = 0;
inline constexpr int Flag(bool on) {
    return on ? True : False;
}

// No calibration step running.
inline constexpr int NoPhase = -1;

}  // namespace shell
