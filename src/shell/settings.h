#pragma once

#include <array>
#include <string>
#include <vector>

#include "platform/ini_file.h"

namespace shell {

struct Shell;

inline constexpr const char* MarloIni = "MARLO.INI";
inline constexpr const char* ConfigIni = "CONFIG.INI";

// The reads of CONFIG.INI and MARLO.INI; what is missing or unreadable gives the stated default, never a failure.

// Language and kind of computer. A kind that is not exactly 0 or 1 becomes 1 and is written back.
void LeggiLingua(Shell& shell);
// The line's texts; a missing CONFIG.INI is first written with the working set COM1, 38400, none, 8, 1.
void LeggiSeriale(Shell& shell);
// Full or reduced display of raw figures; the build's variant decides where the text is no number.
void LeggiRisoluzione(Shell& shell);
// Which channels are on the chart, and the folder of the wiring schemes. A missing MARLO.INI is first written with the
// usual four; a missing key, or one that names no channel, is an empty place.
void LeggiGrafici(Shell& shell);

std::string ReadMarlo(Shell& shell, const char* section, const char* key, const char* otherwise);
bool WriteMarlo(Shell& shell, const char* section, const char* key, const std::string& value);
// Keys of the serial line into CONFIG.INI, in one write.
bool WriteSerial(Shell& shell, const std::vector<platform::IniValue>& values);
bool MarloExists(Shell& shell);

// The parities as CONFIG.INI names them, in the order of the list.
inline constexpr std::array<const char*, 3> Parities{"NESSUNA", "PARI", "DISPARI"};
// The chosen parity in the words of the language; a text that names none stands as it is.
std::string ParityWord(const Shell& shell);

// Highest number of a port that can be chosen.
inline constexpr int Ports = 10;
// The device behind a port number: of the command line, else of section PORTE, else the system's own name.
std::string DeviceOfPort(Shell& shell, int port);
// The number in the stored port text ("COM3" gives 3); 0 when there is none.
int PortNumber(const Shell& shell);

}  // namespace shell
