#include <algorithm>

#include "sim/scenario.h"
#include "sim/trace.h"

namespace sim {

namespace {

constexpr double FastestRate = 1000;
constexpr double SlowestRate = 0.01;
constexpr int MostTimes = 1000000;
constexpr int LongestDelay = 600000;
constexpr int LongestFrame = 2000;
constexpr int UsualLogged = 20;
constexpr std::size_t LongestSend = 65536;
constexpr std::array<int, 4> StatusPositions{39, 33, 40, 38};  // of status digits 1 to 4

Parsed Usage() {
    return Action{};
}

Parsed ParseStream(const Words& arguments) {
    if (arguments.size() != 1) return Usage();
    const std::string& word = arguments[0];
    if (word != "on" && word != "off" && word != "steady") return Usage();
    return Action([on = word != "off", steady = word == "steady"](Parts& parts) -> Answer {
        parts.stream.on = on;
        parts.stream.steady = steady;
        return {};
    });
}

Parsed ParseRate(const Words& arguments) {
    const auto rate = arguments.size() == 1 ? Number(arguments[0]) : std::nullopt;
    if (!rate || *rate < SlowestRate || *rate > FastestRate) return Usage();
    return Action([rate = *rate](Parts& parts) -> Answer {
        SetRate(parts, rate);
        return {};
    });
}

Parsed ParseLength(const Words& arguments) {
    const auto length = arguments.size() == 1 ? Decimal(arguments[0]) : std::nullopt;
    if (length != ShortFrame && length != LongFrame) return Usage();
    return Action([length = *length](Parts& parts) -> Answer {
        parts.stream.length = length;
        return {};
    });
}

Action Override(int position, std::string text) {
    return [position, text = std::move(text)](Parts& parts) -> Answer {
        parts.stream.overrides[position] = text;
        return {};
    };
}

Action Release(int position) {
    return [position](Parts& parts) -> Answer {
        parts.stream.overrides.erase(position);
        return {};
    };
}

Parsed ParseField(const Words& arguments) {
    if (arguments.size() != 2) return Usage();
    const FieldRow* const field = FindField(arguments[0]);
    if (field == nullptr) return Parsed::Wrong("there is no field " + InQuotes(arguments[0]));
    if (arguments[1] == "auto") return Release(field->position);
    auto text = Unescaped(arguments[1]);
    const auto width = static_cast<std::size_t>(field->width);
    if (!text || text->size() > width) return Parsed::Wrong("the field has " + std::to_string(width) + " characters");
    return Override(field->position, std::string(width - text->size(), ' ') + *text);
}

Parsed ParseStatus(const Words& arguments) {
    const auto digit = arguments.size() == 2 ? Decimal(arguments[0]) : std::nullopt;
    if (!digit || *digit < 1 || *digit > static_cast<int>(StatusPositions.size())) return Usage();
    const int position = StatusPositions[static_cast<std::size_t>(*digit - 1)];
    if (arguments[1] == "auto") return Release(position);
    return arguments[1].size() == 1 ? Parsed(Override(position, arguments[1])) : Usage();
}

// Reads "[AMOUNT] [command LETTER|all] [once|N times|forever] [at frame N]" behind the fault's word.
struct OrderReader {
    const Words& words;
    std::size_t next = 1;
    Order order;
    bool failed = false;

    bool More() const { return next < words.size(); }
    const std::string& Take() { return words[next++]; }
    bool Ahead(std::string_view first, std::size_t count) const {
        return next + count <= words.size() && words[next] == first;
    }
    int TakeNumber(int low, int high) {
        const auto value = More() ? Decimal(Take()) : std::nullopt;
        if (!value || *value < low || *value > high) failed = true;
        return failed ? low : *value;
    }
    void TakeLetter() {
        const std::string& word = Take();
        if (word == "all") {
            order.letter = AnyCommand;
        } else if (word.size() == 1 && (word[0] == StreamLetter || CommandLetters.find(word[0]) != std::string::npos)) {
            order.letter = word[0];
        } else {
            failed = true;
        }
    }
    void TakeOne() {
        if (Ahead("command", 2)) {
            Take();
            TakeLetter();
        } else if (Ahead("once", 1)) {
            Take();
            order.left = 1;
        } else if (Ahead("forever", 1)) {
            Take();
            order.left = Forever;
        } else if (Ahead("at", 3) && words[next + 1] == "frame") {
            next += 2;
            order.skip = TakeNumber(1, MostTimes) - 1;
        } else if (next + 2 <= words.size() && words[next + 1] == "times") {
            order.left = TakeNumber(1, MostTimes);
            ++next;
        } else {
            failed = true;
        }
    }
};

Parsed ParseMisbehave(const Words& arguments) {
    if (arguments.empty()) return Usage();
    const auto row =
        std::find_if(Faults.begin(), Faults.end(), [&](const FaultRow& fault) { return fault.word == arguments[0]; });
    if (row == Faults.end()) return Parsed::Wrong("there is no way to misbehave called " + InQuotes(arguments[0]));
    OrderReader reader{arguments, 1, {}, false};
    reader.order.fault = row->fault;
    reader.order.amount = row->usualAmount;
    const bool amountGiven =
        arguments.size() > 1 && Decimal(arguments[1]) && !(arguments.size() > 2 && arguments[2] == "times");
    if (row->takesAmount && amountGiven) {
        reader.order.amount = reader.TakeNumber(1, row->fault == Fault::Length ? LongestFrame : LongestDelay);
    }
    while (reader.More() && !reader.failed) reader.TakeOne();
    if (reader.failed) return Usage();
    if (reader.order.letter == StreamLetter && !row->forStream) {
        return Parsed::Wrong("live frames cannot misbehave like that");
    }
    return Action([order = reader.order](Parts& parts) -> Answer {
        return parts.misbehaviours.Add(order) ? Answer{} : Refusal("too many orders: behave takes them back");
    });
}

Parsed ParseBehave(const Words& arguments) {
    if (!arguments.empty()) return Usage();
    return Action([](Parts& parts) -> Answer {
        parts.misbehaviours.Clear();
        parts.pull.reset();
        return {};
    });
}

Action Pull(int after, bool byStream) {
    return [after, byStream](Parts& parts) -> Answer {
        parts.pull = CablePull{byStream, after};
        return {};
    };
}

Parsed ParseCable(const Words& arguments) {
    if (arguments.empty() || (arguments[0] != "in" && arguments[0] != "out")) return Usage();
    if (arguments.size() == 1) {
        return Action([in = arguments[0] == "in"](Parts& parts) -> Answer {
            parts.pull.reset();
            parts.line.SetConnected(in);
            return {};
        });
    }
    const bool byStream = arguments.size() == 4 && arguments[3] == "live";
    if (arguments[0] != "out" || arguments[1] != "after" || arguments.size() != (byStream ? 4U : 3U)) return Usage();
    const auto after = Decimal(arguments[2]);
    return after && *after <= MostTimes ? Parsed(Pull(*after, byStream)) : Usage();
}

Parsed SendBytes(std::string bytes) {
    if (bytes.empty() || bytes.size() > LongestSend) return Usage();
    return Action([bytes = std::move(bytes)](Parts& parts) -> Answer {
        Send(parts, bytes);
        return {};
    });
}

Parsed ParseSend(const Words& arguments) {
    const auto bytes = arguments.size() == 1 ? FromHex(arguments[0]) : std::nullopt;
    return bytes ? SendBytes(std::string(bytes->begin(), bytes->end())) : Usage();
}

Parsed ParseSendText(const Words& arguments) {
    auto text = arguments.size() == 1 ? Unescaped(arguments[0]) : std::nullopt;
    return text ? SendBytes(std::move(*text)) : Usage();
}

Parsed ParseCount(const Words& arguments) {
    if (arguments.size() != 1 || arguments[0].size() != 1 || arguments[0][0] < 'A' || arguments[0][0] > 'Z') {
        return Usage();
    }
    return Action([letter = arguments[0].front()](Parts& parts) -> Answer {
        return {true, {}, {{"count", parts.counters.Of(letter)}}};
    });
}

Parsed ParseCounters(const Words& arguments) {
    const bool clear = arguments.size() == 1 && arguments[0] == "clear";
    if (!clear && !arguments.empty()) return Usage();
    return Action([clear](Parts& parts) -> Answer {
        Answer answer;
        for (const char letter : CommandLetters) {
            answer.values.emplace_back(std::string(1, letter), parts.counters.Of(letter));
        }
        answer.values.emplace_back("all", parts.counters.All());
        answer.values.emplace_back("bad", parts.counters.bad);
        answer.values.emplace_back("refused", parts.counters.refused);
        answer.values.emplace_back("answered", parts.counters.answered);
        answer.values.emplace_back("live", parts.counters.live);
        if (clear) parts.counters = {};
        return answer;
    });
}

Parsed ParseLog(const Words& arguments) {
    const auto count = arguments.size() == 1 ? Decimal(arguments[0]) : std::nullopt;
    if (arguments.size() > 1 || (arguments.size() == 1 && !count)) return Usage();
    return Action([count = count.value_or(UsualLogged)](Parts& parts) -> Answer {
        return {true, {}, {{"frames", parts.log.Last(static_cast<std::size_t>(count))}}};
    });
}

void StopPlaying(Parts& parts) {
    parts.playback.Clear();
    parts.playing = Playing::No;
}

bool LiveFrameOf(const TraceEntry& entry) {
    return entry.bytes.size() > 2 && entry.bytes[1] == StreamLetter;
}

Answer Play(Parts& parts, const std::string& name, Playing what) {
    if (parts.files == nullptr) return Refusal("no files can be read here");
    const auto text = parts.files->Read(parts.folder / name);
    if (!text) return Refusal(InQuotes(name) + " cannot be read");
    Trace trace = ReadTrace(*text);
    if (!trace.error.empty()) return Refusal(InQuotes(name) + ", " + trace.error);
    StopPlaying(parts);
    parts.playing = what;
    const std::int64_t start = trace.entries.empty() ? 0 : trace.entries.front().millis;
    std::int64_t last = 0;
    std::int64_t frames = 0;
    for (TraceEntry& entry : trace.entries) {
        last = entry.millis - start;
        if (entry.direction != '<' || (what == Playing::Live && !LiveFrameOf(entry))) continue;
        ++frames;
        parts.playback.After(last, [&parts, bytes = std::move(entry.bytes)] { Send(parts, bytes); });
    }
    parts.playback.After(last, [&parts] { parts.playing = Playing::No; });
    return {true, {}, {{"frames", frames}, {"ms", last}}};
}

Parsed ParsePlay(const Words& arguments) {
    if (arguments.size() == 1 && arguments[0] == "stop") {
        return Action([](Parts& parts) -> Answer {
            StopPlaying(parts);
            return {};
        });
    }
    const bool live = arguments.size() == 2 && arguments[1] == "live";
    if (arguments.size() != 1 && !live) return Usage();
    return Action([name = arguments[0], what = live ? Playing::Live : Playing::Whole](Parts& parts) {
        return Play(parts, name, what);
    });
}

}  // namespace

const std::vector<Verb>& LineVerbs() {
    static const std::vector<Verb> verbs{
        {"stream", "on|off|steady", ParseStream},
        {"rate", "FRAMES-A-SECOND", ParseRate},
        {"length", "47|51", ParseLength},
        {"status", "1..4 CHARACTER|auto", ParseStatus},
        {"field", "NAME|POSITION TEXT|auto", ParseField},
        {"misbehave", "HOW [AMOUNT] [command LETTER|all] [once|N times|forever] [at frame N]", ParseMisbehave},
        {"behave", "", ParseBehave},
        {"cable", "in|out [after N [live]]", ParseCable},
        {"send", "HEX", ParseSend},
        {"send-text", "TEXT", ParseSendText},
        {"count", "LETTER", ParseCount},
        {"counters", "[clear]", ParseCounters},
        {"log", "[COUNT]", ParseLog},
        {"play", "FILE [live]|stop", ParsePlay},
    };
    return verbs;
}

}  // namespace sim
