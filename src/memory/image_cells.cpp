#include "memory/image_cells.h"

#include <array>

#include "link/frames/numbers.h"
#include "memory/image.h"
#include "platform/text.h"

namespace memory {

namespace {

constexpr std::uint32_t Erased = 0xFF;
constexpr int CodeCell = 4016;
constexpr int CodeBytes = 7;
constexpr int CodeDigitCell = 4062;
constexpr const char* NoCode = "000_0";

std::string Characters(std::string_view image, int address, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(ByteCella(image, address + i, 1));
    return text;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string ReadCode(std::string_view image) {
    const std::string text = Characters(image, CodeCell, CodeBytes);
    const std::string digit = Characters(image, CodeDigitCell, 1);
    const std::string_view code = platform::Trim(text);
    return frames::IsNumeric(code) && IsDigit(digit.front()) ? std::string(code) + "_" + digit : NoCode;
}

int TwoDigits(std::string_view text, std::size_t at) {
    if (!IsDigit(text[at]) || !IsDigit(text[at + 1])) return -1;
    return (text[at] - '0') * 10 + (text[at + 1] - '0');
}

int DaysIn(int month, int year) {
    constexpr std::array<int, 12> Days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    return Days.at(static_cast<std::size_t>(month - 1)) + (month == 2 && leap ? 1 : 0);
}

}  // namespace

bool IsDate(std::string_view text, const platform::WallTime& now) {
    constexpr std::size_t Length = 8;
    if (text.size() != Length || text[2] != '/' || text[5] != '/') return false;
    const int day = TwoDigits(text, 0);
    const int month = TwoDigits(text, 3);
    const int year = TwoDigits(text, 6);
    if (day < 1 || month < 1 || month > 12 || year < 0) return false;
    return day <= DaysIn(month, now.year / 100 * 100 + year);
}

ImageInfo ReadImageInfo(std::string_view image, const platform::WallTime& now) {
    ImageInfo info;
    info.programmed = ByteCella(image, MarkerCell, 1) != Erased && ByteCella(image, MarkerCell + 1, 1) != Erased;
    info.CodiceAcq = ReadCode(image);
    const std::string date = Characters(image, DateCell, DateBytes);
    info.DataProgrammazione = date.substr(0, 2) + "/" + date.substr(2, 2) + "/" + date.substr(4, 2);
    info.ScriviData = !IsDate(info.DataProgrammazione, now);
    return info;
}

std::string DateStamp(const platform::WallTime& now) {
    std::string digits;
    for (const int part : {now.day, now.month, now.year % 100}) {
        for (const char c : {static_cast<char>('0' + part / 10), static_cast<char>('0' + part % 10)}) {
            digits += frames::Hex(static_cast<unsigned char>(c), 1);
        }
    }
    return digits;
}

}  // namespace memory
