#pragma once

namespace memory {

struct Memory;

// Makes the inspector's file, when there is none, of the two area files, ESTERNA first, line by line as they stand: of
// a read that broke off it is as short as they are. True when the file is there afterwards; false when an area file is
// missing or a file cannot be read or written.
bool BuildInspectorFile(Memory& memory);

}  // namespace memory
