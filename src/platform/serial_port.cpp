#include "platform/serial_port.h"

#include <array>
#include <charconv>

namespace platform {

namespace {

constexpr long HighestBaud = 4000000;

struct StopBits {
    std::string_view text;
    int halves;
};

constexpr std::array<StopBits, 3> AllStopBits{{{"1", 2}, {"1.5", 3}, {"2", 4}}};

bool ReadNumber(std::string_view text, long& value) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size();
}

bool ReadStopBits(std::string_view text, int& halves) {
    for (const StopBits& row : AllStopBits) {
        if (row.text == text) {
            halves = row.halves;
            return true;
        }
    }
    return false;
}

}  // namespace

bool ReadLineSettings(std::string_view text, LineSettings& settings) {
    std::array<std::string_view, 4> fields;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const std::size_t comma = text.find(',');
        const bool last = i + 1 == fields.size();
        if (last != (comma == std::string_view::npos)) return false;
        fields[i] = text.substr(0, comma);
        if (!last) text.remove_prefix(comma + 1);
    }
    LineSettings read;
    long dataBits = 0;
    if (!ReadNumber(fields[0], read.baud) || read.baud < 1 || read.baud > HighestBaud) return false;
    if (fields[1] != "N" && fields[1] != "E" && fields[1] != "O") return false;
    read.parity = fields[1][0];
    if (!ReadNumber(fields[2], dataBits) || dataBits < 5 || dataBits > 8) return false;
    read.dataBits = static_cast<int>(dataBits);
    if (!ReadStopBits(fields[3], read.halfStopBits)) return false;
    settings = read;
    return true;
}

}  // namespace platform
