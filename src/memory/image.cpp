#include "memory/image.h"

#include <algorithm>

#include "link/frames/numbers.h"
#include "platform/text.h"

namespace memory {

namespace {

constexpr std::uint32_t ErasedByte = 0xFF;
constexpr std::size_t DigitsPerByte = 2;
constexpr std::size_t AreaFileSize = std::size_t{AreaLines} * LineLength;
constexpr std::size_t AreaDigits = AreaBytes * DigitsPerByte;
constexpr std::string_view ImageExtension = ".MVN";

// The word of the finer divider and the byte of the coarse one, which older programs alone have.
constexpr int FineDividerCell = 3208;
constexpr int CoarseDividerCell = 3079;
constexpr std::uint32_t ErasedWord = 0xFFFF;
constexpr std::uint32_t DividerRatio = 100;
// The adaptation that belongs to the vehicle the image came from.
constexpr int AdaptationCell = 3808;
constexpr int AdaptationBytes = 16;

bool IsHex(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

bool InImage(int address) {
    return IsInternal(address) || (address >= 0 && address < AreaBytes);
}

std::string_view NextLine(std::string_view& text) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    return line;
}

std::string AreaText(std::string_view digits) {
    std::string out;
    for (int line = 0; line < AreaLines; ++line) {
        const std::size_t at = static_cast<std::size_t>(line) * LineDigits;
        std::string text(at < digits.size() ? digits.substr(at, LineDigits) : std::string_view());
        text.resize(LineDigits, 'F');
        out += text + "\r\n";
    }
    return out;
}

std::uint32_t ByteAt(std::string_view image, std::size_t position) {
    if (position + DigitsPerByte > image.size() || !IsHex(image[position]) || !IsHex(image[position + 1]))
        return ErasedByte;
    return static_cast<std::uint32_t>(frames::HexInt(image.substr(position, DigitsPerByte)).value_or(0));
}

}  // namespace

bool IsInternal(int address) {
    return address >= FirstInternal && address <= LastInternal;
}

std::string JoinLines(std::string_view content) {
    std::string image;
    while (!content.empty()) image += NextLine(content);
    return image;
}

std::string WithFileLineEnds(std::string_view content) {
    std::string lines;
    while (!content.empty()) {
        lines += NextLine(content);
        lines += "\r\n";
    }
    return lines;
}

std::optional<std::string> LeggiImmagine(platform::Files& files, const platform::Path& file) {
    const auto content = files.Read(file);
    if (!content) return std::nullopt;
    return JoinLines(*content);
}

std::optional<Areas> LeggiAree(platform::Files& files, const platform::Path& file) {
    const auto content = files.Read(file);
    if (!content) return std::nullopt;
    Areas areas;
    std::string_view rest = *content;
    for (int line = 0; line < ImageLines && !rest.empty(); ++line) {
        (line < AreaLines ? areas.external : areas.internal) += NextLine(rest);
    }
    return areas;
}

std::string ImageText(const Areas& areas) {
    return AreaText(areas.external) + AreaText(areas.internal);
}

bool ScriviImmagine(platform::Files& files, const platform::Path& file, const Areas& areas) {
    return files.Write(file, ImageText(areas));
}

std::size_t ImagePosition(int address) {
    const int byte = IsInternal(address) ? AreaBytes + address - FirstInternal : std::max(0, address);
    return static_cast<std::size_t>(byte) * DigitsPerByte;
}

std::uint32_t ByteCella(std::string_view image, int address, int bytes) {
    constexpr int MostBytes = 4;
    std::uint32_t value = 0;
    for (int i = 0; i < std::min(bytes, MostBytes); ++i) {
        value = value << 8U | (InImage(address + i) ? ByteAt(image, ImagePosition(address + i)) : ErasedByte);
    }
    return value;
}

void SetCella(std::string& image, int address, std::string_view digits) {
    if (!InImage(address)) return;
    const std::size_t start = ImagePosition(address);
    const std::size_t areaEnd = (start / AreaDigits + 1) * AreaDigits;
    if (start + digits.size() <= std::min(areaEnd, image.size())) image.replace(start, digits.size(), digits);
}

std::string AreaDigitsOf(std::string_view content) {
    std::string digits;
    if (content.size() == AreaFileSize) {
        for (std::size_t at = 0; at < AreaFileSize; at += LineLength) digits += content.substr(at, LineDigits);
        return digits;
    }
    for (int line = 0; line < AreaLines; ++line) {
        std::string text(NextLine(content));
        text.resize(LineDigits, 'F');
        digits += text;
    }
    return digits;
}

RecordPlace RecordImmagine(int address) {
    const int offset = IsInternal(address) ? address - FirstInternal : std::max(0, address);
    const int before = IsInternal(address) ? AreaLines : 0;
    return {before + offset / LineBytes + 1, static_cast<int>(DigitsPerByte) * (offset % LineBytes) + 1};
}

ImageProblem CheckImageFile(platform::Files& files, const platform::Path& file) {
    if (!files.Exists(file)) return ImageProblem::Missing;
    if (platform::UpperCase(file.extension().string()) != ImageExtension) return ImageProblem::WrongName;
    return files.Size(file) == ImageFileSize ? ImageProblem::None : ImageProblem::WrongSize;
}

bool IsWholeImage(std::string_view image) {
    return image.size() == ImageDigits && std::all_of(image.begin(), image.end(), IsHex);
}

void ApplyFixUps(std::string& image) {
    if (ByteCella(image, FineDividerCell, 2) == ErasedWord) {
        SetCella(image, FineDividerCell, frames::Hex(ByteCella(image, CoarseDividerCell, 1) * DividerRatio, 2));
    }
    SetCella(image, AdaptationCell, std::string(AdaptationBytes * DigitsPerByte, '0'));
}

}  // namespace memory
