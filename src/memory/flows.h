#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>

#include "memory/image.h"
#include "platform/files.h"

namespace memory {

struct Memory;

// The block flows that move a whole image. The last three keep menus and toolbar off until they have ended, in whatever
// way.
enum class Flow {
    Connection,   // read at recognition
    Inspector,    // read for the memory inspector
    Archive,      // save from the unit to the archive
    Programming,  // archive image into the unit
    Erasing,
    Count
};

// How a flow's page follows it. Every handler may be empty. `silent` is told with the state that got no reply; the
// signal and the watchdog are the transaction's.
struct FlowEvents {
    std::function<void(int address)> progress;
    std::function<void()> done;
    std::function<void()> refused;
    std::function<void(int state)> silent;
};

using FlowTable = std::array<FlowEvents, static_cast<std::size_t>(Flow::Count)>;

FlowEvents& EventsOf(Memory& memory, Flow flow);

// Adds the flows' states to the catalogue.
void AddFlowStates(Memory& memory);

// The first frame of the connection read, within the exchange of the recognition; the area files must be gone.
void BeginConnectionRead(Memory& memory);
// Deletes the inspector's file and reads the unit into it. False when a transaction runs or the file cannot be deleted.
bool StartInspectorRead(Memory& memory);
// Reads the unit and files the image under `target`, whose folders are made at the end. False when a transaction runs
// or the work file of an earlier read cannot be deleted.
bool StartArchiveRead(Memory& memory, const platform::Path& target);
// Erases the unit, except the cells that tell who it is. False when a transaction runs.
bool StartErasing(Memory& memory);

// Loads an archive image to be written to the unit that has been read, with the fix-ups; one whose digits are none
// counts as of a wrong size. After a problem no image is loaded; while a transaction runs the one loaded before stays.
ImageProblem LoadForProgramming(Memory& memory, const platform::Path& file);
// Writes the loaded image; the marker comes last. False when a transaction runs, no whole image is loaded or no unit
// has been read.
bool StartProgramming(Memory& memory);

// "<text> <address>)", as every flow tells how far it is.
std::string ProgressText(std::string_view text, int address);
// How much of the connection read is done at this address, in percent.
int PercentRead(int address);
// The same of a flow that writes: there the marker word comes last.
int PercentWritten(int address);

}  // namespace memory
