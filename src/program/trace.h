#pragma once

#include "platform/files.h"

namespace program {

struct Program;

// Writes every frame sent and received to a file, one a line: milliseconds since the start at which it was sent or had
// arrived whole, ">" for sent or "<" for received, the frame, with control characters as "\x02". The file starts empty.
void TraceTo(Program& program, const platform::Path& file);

}  // namespace program
