#include "link/reception.h"

#include <algorithm>
#include <array>

#include "link/frames/build.h"
#include "link/frames/numbers.h"
#include "link/frames/popper.h"
#include "link/lamps.h"
#include "link/link.h"
#include "link/transaction.h"
#include "link/waiting.h"
#include "shell/message.h"
#include "shell/settings.h"

namespace eculink {

namespace {

using frames::Format0;
using frames::IsNumeric;
using frames::ValoreNum;

constexpr int StoredPoints = 1;  // of the sensor line: those in the unit's image
constexpr int MapLearning = 5;   // the calibration step that works with pressures in mbar

struct ParityRow {
    std::string_view text;
    std::string_view field;
};
// Any other text leaves the field out, and the port refuses the settings.
constexpr std::array<ParityRow, 3> Parities{{{"NESSUNA", "N,"}, {"PARI", "E,"}, {"DISPARI", "O,"}}};

std::string Trimmed(const std::string& text) {
    return std::string(platform::Trim(text));
}

std::string PortSettings(const shell::SerialTexts& serial) {
    std::string settings = Trimmed(serial.baud) + ",";
    const std::string parity = platform::UpperCase(platform::Trim(serial.parity));
    for (const ParityRow& row : Parities) {
        if (row.text == parity) settings += row.field;
    }
    return settings + Format0(ValoreNum(serial.dataBits)) + "," + Trimmed(serial.stopBits);
}

bool IsLive(const std::string& frame) {
    return frame.size() > 1 && frame[1] == 'D';
}

void Dispatch(Link& link, const std::string& frame) {
    if (frame.size() < 2) return;
    if (frame[1] == 'D') {
        FrameDati(link, frame);
    } else {
        DispatchReply(link, frame);
    }
}

bool OpenPort(Link& link) {
    platform::SerialPort& port = link.shell.host.port;
    if (port.PortOpen()) port.Close();
    const int number = shell::PortNumber(link.shell);
    ForgetLine(link);
    link.state.lastByteAt = NowMs(link);
    if (number > 0) port.SetDevice(shell::DeviceOfPort(link.shell, number));
    link.state.lineSettings = PortSettings(link.shell.state.serial);
    const bool legal = number > 0 && port.SetSettings(link.state.lineSettings);
    const bool open = legal && port.Open();
    if (!open && port.PortOpen()) port.Close();
    link.state.portFailed = !open;
    link.timers.Reopening->SetEnabled(legal && !open);
    return open;
}

}  // namespace

// A device that was absent, forbidden or busy is tried again once nothing that can be seen from outside stands against
// it. One that cannot be set as it should is left alone.
void OpenAgain(Link& link) {
    platform::SerialPort& port = link.shell.host.port;
    if (port.Fault() == platform::PortFault::Failed) return;
    const platform::PortFacts facts = link.shell.host.probe.Look(port.Device());
    if (facts.present && facts.permitted) OpenPort(link);
}

int ApriPorta(Link& link) {
    if (OpenPort(link)) return 0;
    link.shell.Beep();
    link.shell.systemMessage.Show(link.shell.TestoLingua("TITOLO_1", "ERRORI"),
                                  link.shell.TestoLingua("ERRORE_2", "ERRORI"));
    return 1;
}

void Received(Link& link) {
    const std::string bytes = link.shell.host.port.Input();
    link.state.BufferRx += bytes;
    link.state.bytesReceived += static_cast<std::int64_t>(bytes.size());
    link.state.lastByteAt = NowMs(link);
    frames::BoundText(link.state.BufferRx);
    if (link.tap) link.tap(bytes);
}

void EstraiFrame(Link& link) {
    std::string& buffer = link.state.BufferRx;
    if (platform::Trim(buffer).empty()) return;
    std::string frame;
    while (true) {
        link.shell.main.Label1.SetText(buffer);
        if (!frames::TakeFrame(buffer, frame)) break;
        if (link.trace) link.trace(Direction::Received, frame);
        if (!IsLive(frame)) break;
        if (link.shell.state.TipoComputer == 1) break;
        if (buffer.size() <= StaleLimit) break;
    }
    if (!platform::Trim(frame).empty()) Dispatch(link, frame);
}

namespace {

// How a field of the live frame becomes the raw text of its channel.
enum class Treatment { Speed, Copy, Pressure, Number, Signed, Code };

struct FieldRow {
    std::size_t position;  // from 1, as the wire counts
    std::size_t width;
    int channel;
    Treatment treatment;
};

constexpr std::size_t ShortFrame = 47;
constexpr std::size_t LongFrame = 51;
constexpr std::size_t PressurePosition = 15;

constexpr std::array<FieldRow, 13> Fields{{
    {3, 4, Giri, Treatment::Speed},
    {7, 4, Lambda, Treatment::Copy},
    {11, 4, Tps, Treatment::Copy},
    {PressurePosition, 4, Map, Treatment::Pressure},
    {47, 4, P1, Treatment::Number},
    {19, 4, Temperatura, Treatment::Copy},
    {23, 4, Livello, Treatment::Copy},
    {27, 3, Step, Treatment::Number},
    {30, 3, CStec, Treatment::Signed},
    {41, 3, Zone, Treatment::Copy},
    {36, 1, RiccoMagro, Treatment::Copy},
    {35, 1, Macro, Treatment::Copy},
    {34, 1, StatoAA, Treatment::Code},
}};
constexpr FieldRow StoredField{44, 3, Stored, Treatment::Copy};

// Where the four digits of the status stand in the frame, digit 1 first.
constexpr std::array<std::size_t, 4> StatusPositions{39, 33, 40, 38};

std::string_view FieldOf(std::string_view frame, std::size_t position, std::size_t width) {
    return frame.substr(position - 1, width);
}

std::string Stars() {
    return std::string(RawWidth, '*');
}

std::string NumberText(double value) {
    return FixedText(Format0(value), RawWidth);
}

std::string PressureText(const Link& link, std::string_view field) {
    if (!IsNumeric(field)) return Stars();
    const double raw = ValoreNum(field);
    const int phase = link.shell.state.FaseAcq;
    if (phase != shell::NoPhase && phase != MapLearning) return NumberText(raw);
    const auto pressure = frames::ConverteMAP(raw, StoredPoints, link.state.DatiLunghi == 1, link.state.mapTable);
    return pressure ? NumberText(*pressure) : Stars();
}

std::string SignedText(std::string_view field) {
    constexpr double SignBit = 128;
    constexpr double ByteRange = 256;
    if (!IsNumeric(field)) return FixedText(field, RawWidth);
    const double value = ValoreNum(field);
    return NumberText(value >= SignBit ? value - ByteRange : value);
}

std::string RawText(const Link& link, const FieldRow& row, std::string_view field) {
    switch (row.treatment) {
        case Treatment::Speed:
        case Treatment::Number:
            return IsNumeric(field) ? NumberText(ValoreNum(field)) : Stars();
        case Treatment::Pressure:
            return PressureText(link, field);
        case Treatment::Signed:
            return SignedText(field);
        case Treatment::Code:
            return NumberText(static_cast<unsigned char>(field.front()));
        case Treatment::Copy:
            break;
    }
    return FixedText(field, RawWidth);
}

void TakeFields(Link& link, std::string_view frame) {
    auto& raw = link.RecCanali.Grezzo;
    for (const FieldRow& row : Fields) {
        const bool missing = row.channel == P1 && link.state.DatiLunghi == 0;
        raw[static_cast<std::size_t>(row.channel)] =
            missing ? Stars() : RawText(link, row, FieldOf(frame, row.position, row.width));
    }
    for (std::size_t digit = 0; digit < StatusPositions.size(); ++digit)
        raw[Commut][digit] = frame[StatusPositions[digit] - 1];
    raw[Stored] = FixedText(FieldOf(frame, StoredField.position, StoredField.width), RawWidth);
}

// The driver starts a first acquisition of a blank unit with the dashboard switch, and leaves it the same way.
void WatchSwitch(Link& link) {
    constexpr int FirstAcquisition = 0;
    const bool now = link.RecCanali.Grezzo[Commut][0] != '0';
    const bool before = link.RecCanali.Valore[Commut][0] != '0';
    int& phase = link.shell.state.FaseAcq;
    if (phase == shell::NoPhase && now && !before) {
        link.state.restartMark = shell::True;
        if (!link.live.SwitchPhase) return;
        link.live.SwitchPhase(shell::NoPhase);
        phase = FirstAcquisition;
    } else if (phase == FirstAcquisition && !now && before) {
        phase = shell::NoPhase;
        if (link.live.SwitchPhase) link.live.SwitchPhase(shell::NoPhase);
    }
}

void HandOn(Link& link) {
    const int& phase = link.shell.state.FaseAcq;
    if (phase >= 0) {
        link.state.DatoNuovo = shell::False;
        if (link.live.CalibrationStep) link.live.CalibrationStep(phase);
    }
    // The step may have been the last one: then this frame is a sample like the next.
    if (phase != shell::NoPhase) return;
    link.state.refresh = true;
    link.state.DatoNuovo = shell::True;
    if (link.live.AddSample) link.live.AddSample();
}

}  // namespace

void FrameDati(Link& link, const std::string& frame) {
    if (frame.size() != ShortFrame && frame.size() != LongFrame) return MarkBadFrame(link);
    State& state = link.state;
    link.timers.TimeOutDati->SetEnabled(false);
    state.DatiLunghi = frame.size() == LongFrame ? 1 : 0;
    state.lastFrameAt = NowMs(link);
    state.bytesReceived = 0;
    MarkGoodFrame(link);
    TakeFields(link, frame);
    if (state.CentralinaDaRiconoscere == shell::True) {
        if (link.live.StartRecognition) link.live.StartRecognition();
        return;
    }
    if (state.CentralinaDaRiconoscere != shell::False || state.StatoCmd != Idle) return;
    state.heard = true;
    if (link.shell.state.ImmagineProgrammata == shell::False) WatchSwitch(link);
    AggiornaCanali(link, ValoreNum(FieldOf(frame, PressurePosition, RawWidth)));
    HandOn(link);
    if (link.shell.state.FaseAcq == shell::NoPhase) state.FlussoAttivo = shell::True;
    // A calibration step may have sent a command: its own limit guards the link then.
    link.timers.TimeOutDati->SetEnabled(state.StatoCmd == Idle);
}

}  // namespace eculink
