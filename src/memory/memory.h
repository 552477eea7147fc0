#pragma once

#include <functional>
#include <string>

#include "link/link.h"
#include "memory/flows.h"
#include "memory/in_eeprom.h"
#include "memory/leggo_in.h"

namespace memory {

// State of the memory room; flags are -1 and 0.
struct State {
    std::string CodiceAcq = "000_0";
    std::string DataProgrammazione;
    int ScriviData = shell::False;  // the next programming stamps today's date
    std::string ImmagineEE;         // the image that is being written to the unit
    platform::Path archiveTarget;   // where the image that is being read will be filed
};

// Where the flows reach rooms that stand above this one.
struct Hooks {
    // Decodes the image held in the two area files; false when one of them cannot be read.
    std::function<bool()> DecodificaImmagine;
    // What follows a recognition: the wizard, the resuming of an acquisition; without it the menus.
    std::function<void()> Proceed;
};

// The unit's memory: image, files, block flows, recognition.
struct Memory {
    explicit Memory(eculink::Link& owner);
    Memory(const Memory&) = delete;
    Memory& operator=(const Memory&) = delete;

    eculink::Link& link;
    State state;
    Hooks hooks;
    FlowTable flows;
    LeggoIn leggoIn{*this};
    InEEPROM inEEPROM{*this};
};

// Names of the work files in the program directory.
inline constexpr const char* ExternalFile = "FILEEEEXT.APP";
inline constexpr const char* InternalFile = "FILEEEINT.APP";
inline constexpr const char* InspectorFile = "FILEEEPROM.DAT";
inline constexpr const char* ArchiveWorkFile = "FILEEE1.APP";
inline constexpr const char* AcquisitionLog = "APPACQ.AMP";

}  // namespace memory
