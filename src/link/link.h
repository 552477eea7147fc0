#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "link/catalogue.h"
#include "link/channels.h"
#include "link/frames/pressure.h"
#include "link/grafici.h"
#include "platform/timer.h"
#include "shell/shell.h"

namespace eculink {

inline constexpr int Idle = -1;                 // StatoCmd with no transaction
inline constexpr int CommandLimit = 5000;       // ms, for each frame
inline constexpr int FailureLimit = 200;        // ms, from a failure inside a handler to its report
inline constexpr int StreamLimit = 4000;        // ms without an accepted live frame
inline constexpr int ProcessingInterval = 100;  // ms; one frame a tick
inline constexpr int BlinkInterval = 500;       // ms
inline constexpr int CheckInterval = 1000;      // ms, of what is looked at while no unit is heard

// State of the link; flags are -1 and 0.
struct State {
    std::string BufferRx;
    std::string ComandoTx;
    int StatoCmd = Idle;
    int ContaX = 0;
    int IndirizzoCorrente = 0;
    int ByteRestanti = 0;
    int FlussoAttivo = shell::False;
    int CentralinaDaRiconoscere = shell::True;
    int VistaDati = RawView;
    int DatiLunghi = 0;
    int StatoRx = -1;
    int ContaRx = 0;
    int DatoNuovo = shell::False;
    int PaginaStrumenti = shell::False;
    std::string VersioneECU;
    int TipoSondaLambda = 0;
    frames::MAPTable mapTable;       // what turns pressure readings into mbar
    int restartMark = shell::False;  // a first acquisition was started from the switch

    bool refresh = false;            // the instruments have something new to show
    std::int64_t bytesReceived = 0;  // since the last live frame of a valid form, a loss or the opening of the port
    std::int64_t lastByteAt = 0;     // ms
    // ms; the last live frame of a valid form since a loss or the opening of the port.
    std::optional<std::int64_t> lastFrameAt;
    int unanswered = 0;         // identifications in a row without a reply
    bool imageNotKept = false;  // recognitions end at the files that are to hold the image
    bool heard = false;         // a unit has been recognised since the start of the program
    std::string lineSettings;   // as the port was last asked to be set, whether it took them or not
    bool portFailed = false;    // the last opening failed
    std::string shownPort;      // what the words of the link last stood for
    int shownWord = -1;
};

// The stages of one live frame that belong to higher rooms, in the order in which they run.
struct LiveHooks {
    std::function<void()> StartRecognition;
    std::function<void(int phase)> SwitchPhase;  // the dashboard switch started (0) or left (-1) a first acquisition
    std::function<void(int phase)> CalibrationStep;  // with the step that runs
    std::function<void()> AddSample;                 // chart and recording buffers
};

// What other rooms do when the stream is lost or a new unit is recognised, before pages close.
struct LossHooks {
    std::function<void()> CloseRecording;
    std::function<void()> ResetCalibration;  // all stored sensor points become -1
};

enum class Direction { Sent, Received };
using Trace = std::function<void(Direction, std::string_view frame)>;

// Timers of the main window.
struct LinkTimers {
    std::unique_ptr<platform::Timer> Elaborazione;
    std::unique_ptr<platform::Timer> TimeOutComandi;
    std::unique_ptr<platform::Timer> TimeOutDati;
    std::unique_ptr<platform::Timer> Lampeggio;
    std::unique_ptr<platform::Timer> LampeggioC;
    std::unique_ptr<platform::Timer> Checks;     // says why no unit is heard
    std::unique_ptr<platform::Timer> Reopening;  // of a port that failed
};

// The ECU link: port, receive buffer, transactions, live picture.
struct Link {
    explicit Link(shell::Shell& owner);
    ~Link();
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;

    shell::Shell& shell;
    State state;
    Record RecCanali;
    History history;
    std::array<ChannelInfo, AllChannels> DescrCanale;
    Catalogue catalogue;
    LiveHooks live;
    LossHooks loss;
    // Hears each frame that is sent, and each that a look at the buffer takes out, the last of which is handed on: how
    // the reception chose, not when a frame arrived.
    Trace trace;
    // Hears the line as it arrives: whoever records what was received listens here.
    std::function<void(std::string_view bytes)> tap;
    LinkTimers timers;
    Grafici grafici{*this};
};

// Milliseconds of the machine's running clock.
std::int64_t NowMs(const Link& link);

}  // namespace eculink
