#pragma once

#include <string>
#include <string_view>

namespace memory {

struct Memory;

// Joins the recognition to the live stream and the catalogue.
void AddRecognition(Memory& memory);
// The first live frame of a unit: identify it.
void StartRecognition(Memory& memory);
// The fitter goes on with an old program: its memory is read, whatever became of the stream meanwhile.
void ContinueRecognition(Memory& memory);
// The text of the unit's program version from the identity reply.
std::string ReadVersion(const std::string& frame);
// True for a version older than 01.04; the text starts with two digits, a separator and two digits.
bool IsOldVersion(std::string_view version);

}  // namespace memory
