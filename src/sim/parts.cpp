#include "sim/parts.h"

#include <algorithm>
#include <cmath>

#include "sim/bytes.h"
#include "sim/image.h"

namespace sim {

namespace {

constexpr int MillisPerSecond = 1000;
constexpr std::int64_t RestAfterAnswer = 250000;  // microseconds of quiet behind each answer

bool CablePulled(Parts& parts, bool byStream) {
    if (!parts.pull || parts.pull->byStream != byStream) return false;
    if (parts.pull->left > 0) {
        --parts.pull->left;
        return false;
    }
    parts.pull.reset();
    parts.line.SetConnected(false);
    return true;
}

void Count(Parts& parts, char letter, const Execution& execution) {
    if (CommandLetters.find(letter) == std::string_view::npos) {
        ++parts.counters.bad;
        return;
    }
    ++parts.counters.commands[static_cast<std::size_t>(letter - 'A')];
    if (!execution.understood) ++parts.counters.bad;
    if (execution.refused) ++parts.counters.refused;
}

void Answer(Parts& parts, const std::string& reply, const Fate& fate) {
    ++parts.counters.answered;
    const std::string bytes = Spoil(Framed(reply), fate, parts.dice);
    const auto send = [&parts, bytes] {
        Send(parts, bytes);
        parts.restUntil = parts.clock.ElapsedMicros() + RestAfterAnswer;
    };
    if (fate.delay > 0) {
        parts.replies.After(fate.delay, send);
    } else {
        send();
    }
}

}  // namespace

Parts::Parts(platform::Clock& unitClock, platform::Timers& timers, platform::LineEnd& far, std::uint32_t seed)
    : clock(unitClock),
      line(far),
      engine(memory, seed),
      dice(seed * 7919U + 1U),
      beat(timers.Make(MillisPerSecond)),
      replies(unitClock, timers),
      script(unitClock, timers),
      playback(unitClock, timers) {
    ProgramStandardImage(memory);
    engine.AdvanceTo(clock.ElapsedMicros());
    beat->SetHandler([this] { Beat(*this); });
    SetRate(*this, stream.rate);
    beat->SetEnabled(true);
}

void Send(Parts& parts, const std::string& bytes) {
    parts.log.Add(parts.clock.ElapsedMicros(), '<', bytes);
    parts.line.Write(bytes);
}

void SetIgnition(Parts& parts, bool on) {
    parts.engine.AdvanceTo(parts.clock.ElapsedMicros());
    if (parts.engine.drive.ignition == on) return;
    parts.engine.drive.ignition = on;
    parts.engine.SetRunning(false);
    parts.replies.Clear();
    if (on) {
        parts.memory.ReloadWorking();
    } else {
        parts.memory.LoseWorking();
    }
}

void SetRate(Parts& parts, double rate) {
    parts.stream.rate = rate;
    parts.beat->SetInterval(std::max(1, static_cast<int>(std::lround(MillisPerSecond / rate))));
}

void Beat(Parts& parts) {
    const std::int64_t now = parts.clock.ElapsedMicros();
    parts.engine.AdvanceTo(now);
    if (!parts.engine.drive.ignition || !parts.stream.on || parts.playing != Playing::No) return;
    if (!parts.stream.steady && now < parts.restUntil) return;
    if (CablePulled(parts, true)) return;
    const Fate fate = parts.misbehaviours.Next(StreamLetter);
    if (fate.silent) return;
    const std::string frame = LiveFrame(parts.engine.Measure(), parts.engine.drive, parts.memory, parts.stream);
    const std::string bytes = Spoil(frame, fate, parts.dice);
    ++parts.counters.live;
    if (fate.delay > 0) {
        parts.replies.After(fate.delay, [&parts, bytes] { Send(parts, bytes); });
    } else {
        Send(parts, bytes);
    }
}

void OnFrame(Parts& parts, const std::string& frame) {
    parts.log.Add(parts.clock.ElapsedMicros(), '>', Framed(frame));
    if (!parts.engine.drive.ignition) return;
    const char letter = frame.empty() ? '\0' : frame.front();
    if (CommandLetters.find(letter) == std::string_view::npos || parts.playing == Playing::Whole) {
        Count(parts, letter, {true, false, {}});
        return;
    }
    const bool pulled = CablePulled(parts, false);
    const Fate fate = parts.misbehaviours.Next(letter);
    if (pulled || fate.silent) {
        Count(parts, letter, {true, false, {}});
        return;
    }
    parts.engine.AdvanceTo(parts.clock.ElapsedMicros());
    const Execution execution =
        fate.refused ? Execution{true, true, RefusalOf(letter)} : Execute(frame, parts.memory, parts.code);
    Count(parts, letter, execution);
    if (!execution.reply.empty()) Answer(parts, execution.reply, fate);
}

}  // namespace sim
