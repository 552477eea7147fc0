#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace memory {

// The two areas of the unit's memory, by the unit's own addresses.
inline constexpr int AreaBytes = 1024;
inline constexpr int FirstInternal = 3072;  // INTERNA, 3072 to 4095; every other address counts as ESTERNA
inline constexpr int LastInternal = 4095;

// Text form: two digits a byte, lines of 16 bytes, each ended by CR LF.
inline constexpr int LineBytes = 16;
inline constexpr int LineDigits = 2 * LineBytes;
inline constexpr int LineLength = LineDigits + 2;
inline constexpr int AreaLines = AreaBytes / LineBytes;
inline constexpr int ImageLines = 2 * AreaLines;
inline constexpr int ImageDigits = ImageLines * LineDigits;
inline constexpr std::uint64_t ImageFileSize = std::uint64_t{ImageLines} * LineLength;

bool IsInternal(int address);

// The lines of a file's content with their ends dropped and joined, whatever they hold.
std::string JoinLines(std::string_view content);

// The lines of a file's content, each ended by CR LF.
std::string WithFileLineEnds(std::string_view content);

// The image of one file as one text of digits, ESTERNA then INTERNA: the lines with their ends dropped and joined. A
// short file gives a short text. Nothing when the file cannot be read.
std::optional<std::string> LeggiImmagine(platform::Files& files, const platform::Path& file);

// The same as two texts of one area each, at most 64 lines each.
struct Areas {
    std::string external;
    std::string internal;
};
std::optional<Areas> LeggiAree(platform::Files& files, const platform::Path& file);

// The file's text of an image of two areas: 64 and 64 lines of 32 digits. A short area is filled with erased bytes.
std::string ImageText(const Areas& areas);
bool ScriviImmagine(platform::Files& files, const platform::Path& file, const Areas& areas);

// Value of `bytes` (1 to 4) bytes at an address of the image text, big-endian. A byte beyond the text, or one whose
// digits are none, reads as erased: 255.
std::uint32_t ByteCella(std::string_view image, int address, int bytes);

// Replaces the digits of a cell in the image text. Digits that do not fit whole into the area of the address, or into
// the text, are left out, as those of an address of neither area are.
void SetCella(std::string& image, int address, std::string_view digits);

// Record number, from 1, and column, from 1, of an address in the view of a file as records of 34 characters.
struct RecordPlace {
    int record;
    int column;
};
RecordPlace RecordImmagine(int address);

// Place of an address of either area in the image text, from 0.
std::size_t ImagePosition(int address);

// One area of an image as its file holds it. A file of its whole size is read by place, any other line by line, so that
// a short or damaged line spoils no other; what is missing reads as erased.
std::string AreaDigitsOf(std::string_view content);

// What speaks against a file that is to serve as an image. NotNow: no unit has been read, or a transaction runs.
enum class ImageProblem { None, NotNow, Missing, WrongName, WrongSize };
// A file is taken for an image by its extension, MVN in any case, and by its size of exactly 4352 bytes; what stands in
// it is not looked at.
ImageProblem CheckImageFile(platform::Files& files, const platform::Path& file);

// Whether the text is a whole image: 4096 hexadecimal digits.
bool IsWholeImage(std::string_view image);

// What is changed in an image before it is written to a unit: an image of an older program lacks the word of the finer
// divider, and what it holds of the unit's adaptation is never restored.
void ApplyFixUps(std::string& image);

}  // namespace memory
