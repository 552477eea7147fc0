// What comes in on the wire, in pieces of any size, against a whole program: nothing it sends may break a rule of the
// reception, whatever the link is doing.

#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include "link/link.h"
#include "link/reception.h"
#include "memory_files.h"
#include "platform/virtual/host.h"
#include "program/program.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

// One look at the buffer, written down step by step as the rules say it, with no regard to speed: the frame that is to
// be handed on, and what is left.
std::optional<std::string> PopByTheRules(std::string& buffer, int kindOfComputer) {
    constexpr char Stx = 2;
    constexpr char Etx = 3;
    if (buffer.find_first_not_of(' ') == std::string::npos) return std::nullopt;
    std::string current;
    while (true) {
        while (buffer.find(Stx) != std::string::npos && buffer.front() != Stx) buffer.erase(buffer.begin());
        if (buffer.empty() || buffer.front() != Stx || buffer.find(Etx) == std::string::npos) break;
        current.clear();
        while (true) {
            const char c = buffer.front();
            buffer.erase(buffer.begin());
            if (c == Stx) current.clear();
            current += c;
            if (c == Etx) break;
        }
        if (current[1] != 'D' || kindOfComputer == 1 || buffer.size() <= 240) break;
    }
    if (current.empty()) return std::nullopt;
    return current;
}

bool IsLive(const std::string& frame) {
    return frame[1] == 'D' && (frame.size() == 47 || frame.size() == 51);
}

void CheckRecord(const eculink::Link& link) {
    for (const std::string& text : link.RecCanali.Grezzo) Require(text.size() == eculink::RawWidth);
    for (const std::string& text : link.RecCanali.Valore) Require(text.size() == eculink::ValueWidth);
    const int rx = link.state.StatoRx;
    Require(rx == -1 || rx == 0 || rx == 2);
    Require(link.state.ContaRx >= 0 && link.state.ContaRx <= 2);
    Require(!link.shell.messaggio.IsOpen());
    Require(link.grafici.lit <= 0xFU);
}

class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}
    unsigned Byte() {
        if (rest_.empty()) return 0;
        const auto byte = static_cast<unsigned char>(rest_.front());
        rest_.remove_prefix(1);
        return byte;
    }
    std::string_view Piece() {
        const std::size_t length = 1 + Byte();
        const std::string_view piece = rest_.substr(0, length);
        rest_.remove_prefix(piece.size());
        return piece;
    }
    bool Empty() const { return rest_.empty(); }

  private:
    std::string_view rest_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    MemoryFiles files;
    platform::virt::VirtualHost host(files);
    program::Program program(host.Get(), {});
    eculink::Link& link = program.link;
    host.line.Port().SetSettings("38400,N,8,1");
    host.line.Port().Open();
    program.shell.stack.OpenPage(program.shell.main, false);
    program.shell.stack.OpenPage(link.grafici, false);

    const unsigned setting = input.Byte();
    program.shell.state.TipoComputer = static_cast<int>(setting & 1U);
    program.shell.state.FaseAcq = (setting & 2U) != 0 ? static_cast<int>(setting >> 5U) : shell::NoPhase;
    program.shell.state.ImmagineProgrammata = shell::Flag((setting & 4U) != 0);
    link.state.CentralinaDaRiconoscere = shell::Flag((setting & 8U) != 0);
    link.state.mapTable.tipoSensoreMAP = static_cast<int>((setting >> 4U) & 3U);
    link.state.VistaDati = static_cast<int>(setting >> 7U);

    // The frames that a look takes out; the last of them is handed on.
    std::optional<std::string> handedOn;
    link.trace = [&](eculink::Direction direction, std::string_view frame) {
        if (direction == eculink::Direction::Received) handedOn = frame;
    };
    int samples = 0;
    link.live.AddSample = [&] { ++samples; };
    while (!input.Empty()) {
        host.line.Far().Write(input.Piece());
        host.world.RunFor(0);
        std::string expectedRest = link.state.BufferRx;
        const auto expected = PopByTheRules(expectedRest, program.shell.state.TipoComputer);
        handedOn.reset();
        samples = 0;
        link.state.lastFrameAt.reset();
        eculink::EstraiFrame(link);
        Require(handedOn == expected);
        Require(link.state.lastFrameAt.has_value() == (expected && IsLive(*expected)));
        Require(samples <= 1);
        Require(link.state.BufferRx == expectedRest || link.state.BufferRx.empty());
        eculink::AggiornaPagina(link);
        host.world.RunFor(eculink::ProcessingInterval);
        CheckRecord(link);
    }
    return 0;
}
