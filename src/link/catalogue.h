#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace eculink {

// How the silence of a command is told, by the letter under which the reaction is known.
enum class TimeOut {
    None,
    A,
    B,
    C,
    D,
    D2,
    E,
    F,
    F2,
    F3,
    G,
    H,
    I,
    J,
    K,
    K2,
    L,
    M,
    N,
    P,
    Q,
    R,
    R2,
    S,
    S2,
    S3,
    T,
    T2,
    T3,
    T4,
    U,
    U2,
    V,
    W,
    X
};

// Which of the letters that a row lists count at a moment: the one that answers the command waited for, so that a reply
// to another command spoils nothing; or all of them alike.
enum class Counting { Awaited, Alike };

// A transaction state: its number, the letters of the replies that it takes, and its reaction to silence.
struct StateRow {
    int state;
    std::string_view letters;
    TimeOut timeOut;
    Counting counting = Counting::Awaited;
};

// What the stream watchdog does after a silent command.
enum class Watchdog { Restored, On, Off };

// What happens whatever page asked: the signal and the watchdog. The page's own part is registered by its room.
struct ReactionRow {
    TimeOut letter;
    bool beep;
    Watchdog watchdog;
    bool duringStep = true;  // otherwise a silence while a calibration step runs has the reaction of None
};
const ReactionRow& ReactionOf(TimeOut letter);

// Does the state's work with a positive reply (a read reply, or a write reply that says "ok"). False is a failure
// inside the handler (arithmetic, file or data): it ends as a silent unit would, 200 ms later.
using ReplyHandler = std::function<bool(const std::string& frame)>;
// A write reply that does not say "ok".
using RefusalHandler = std::function<void()>;
// The page's part of a time-out; gets the state that was waiting.
using TimeOutHandler = std::function<void(int state)>;

// All transaction states in one table; each room adds the rows of its flows when the program is assembled.
class Catalogue {
  public:
    struct Entry {
        StateRow row;
        ReplyHandler reply;
        RefusalHandler refused;
        TimeOutHandler timeOut;
        std::map<char, ReplyHandler> byLetter;

        // The handler of a reply; null when this state does not take it now.
        const ReplyHandler* HandlerOf(const std::string& frame) const;
    };

    // A state without handlers is one whose page this version does not have: its replies are dropped. A state belongs
    // to one room: one that is there already throws std::logic_error, so that the program is never put together wrong.
    void Add(const StateRow& row, ReplyHandler reply = {}, RefusalHandler refused = {}, TimeOutHandler timeOut = {});
    // A letter with work of its own in a state that is there; without it, std::logic_error.
    void AddReply(int state, char letter, ReplyHandler reply);
    // Null when no room has added the state.
    const Entry* Find(int state) const;
    const std::map<int, Entry>& Rows() const { return rows_; }

  private:
    std::map<int, Entry> rows_;
};

}  // namespace eculink
