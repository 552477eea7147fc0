#pragma once

#include <string>
#include <string_view>

#include "platform/clock.h"

namespace memory {

// What an image says about itself as a whole.
struct ImageInfo {
    bool programmed = false;          // neither byte of the marker is erased
    std::string CodiceAcq = "000_0";  // a number, "_", one digit; names the file of the acquisition
    std::string DataProgrammazione;   // dd/mm/yy of the first programming, as it stands
    bool ScriviData = true;           // that is no date: the next programming stamps today's
};

// Reads it from a whole image text; a short one reads as erased where it ends.
ImageInfo ReadImageInfo(std::string_view image, const platform::WallTime& now);

// True for a day of the calendar written dd/mm/yy, in the century of `now`.
bool IsDate(std::string_view text, const platform::WallTime& now);

// The twelve hexadecimal digits of today's date as six ASCII characters ddmmyy.
std::string DateStamp(const platform::WallTime& now);

inline constexpr int MarkerCell = 3072;
inline constexpr int DateCell = 4074;
inline constexpr int DateBytes = 6;

}  // namespace memory
