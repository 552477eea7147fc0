#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "sim/memory.h"

namespace sim {

// Fills both permanent memories with a complete installation: absolute pressure sensor, probe of 0-1 V, a rising map,
// every figure within the limits of its field, no fault logged, identified as 1234567_1, programmed on 05/01/26. What
// it says of the sensors is what the engine model has.
void ProgramStandardImage(Memory& memory);

// The whole image as a file holds it: 128 lines of 16 bytes in hexadecimal digits, CR LF behind each, ESTERNA first.
std::string ImageText(const Memory& memory);

// Takes such a text; false, and nothing changed, when it is not 4352 characters of that form.
bool LoadImageText(std::string_view text, Memory& memory);

}  // namespace sim
