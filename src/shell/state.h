#pragma once

#include <array>
#include <map>
#include <string>

#include "platform/files.h"
#include "shell/flags.h"

namespace shell {

enum class Variant { None, Qt, Avx };

enum class Pointer { Normal, Wait };

// What the command line decides, before anything is read.
struct Options {
    platform::Path folder;             // program directory; made when it is missing
    platform::Path shipped;            // what ships with the program, to fill a new directory with; may be empty
    std::map<int, std::string> ports;  // devices behind port numbers, for this run
    Variant variant = Variant::None;
};

// The serial line's settings as fixed texts of CONFIG.INI.
struct SerialTexts {
    std::string port;    // at most 5 characters, "COM1"
    std::string baud;    // at most 5 characters
    std::string parity;  // at most 7 characters
    std::string dataBits;
    std::string stopBits;
};

// What MARLO.INI says of the charts, as it was read at the start.
struct ChartSettings {
    static constexpr int Empty = -1;
    static constexpr std::size_t Places = 4;

    std::array<int, Places> Grafico{Empty, Empty, Empty, Empty};  // channel on each place of the chart
    std::string Directory;                                        // where wiring schemes were last looked for
};

// The global state of the shell; flags are -1 and 0.
struct State {
    std::string CartellaProg;  // UTF-8 is an edge: here code page 1252
    std::string Lingua = "INGLESE";
    int FaseAcq = NoPhase;
    int SottoFase = 0;
    int ImmagineProgrammata = True;  // 0: the image held is blank, the switch may start a first acquisition
    int SenzaImmagine = True;        // -1 while no image of the unit's memory is held
    int InChiusura = False;
    int PaginaMessaP = 0;  // page that MessaP or Imposta is to show
    char SepDecimale = '.';
    std::string FileRegistrazione;
    int VarianteQT = False;
    int VarianteAVX = False;
    int TipoComputer = 1;          // 0: superseded live frames may be dropped
    int RisoluzionePiena = False;  // -1: raw figures show 0..1023, else they are scaled to 0..255
    int FirmwareVecchio = False;   // the unit's program is older than 01.04
    SerialTexts serial;
    ChartSettings charts;

    Pointer pointer = Pointer::Normal;
    int beeps = 0;
    bool ended = false;  // the program has been asked to end
    int exitStatus = 0;
};

}  // namespace shell
