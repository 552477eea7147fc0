#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "sim/random.h"

namespace sim {

enum class Fault : std::uint8_t {
    Silence,      // the frame is not taken in and not answered; a live frame is not sent
    Refuse,       // "no", nothing executed
    Lose,         // one character of the body is missing
    Double,       // one character of the body comes twice
    Garble,       // one character of the body is another one
    Cut,          // the second half, ETX included, is missing
    Repeat,       // the whole frame comes twice
    Length,       // the frame has `amount` characters in all
    OtherLetter,  // the answer bears the letter of another command
    Slow,         // the frame comes `amount` milliseconds later
    Late,         // the same, and so much later that the program has given up
};

struct FaultRow {
    Fault fault;
    std::string_view word;
    bool takesAmount;
    int usualAmount;  // where the line names none; 0 for Length: one character too few
    bool forStream;   // can happen to live frames
};

inline constexpr auto Faults = std::to_array<FaultRow>({
    {Fault::Silence, "silence", false, 0, true},
    {Fault::Refuse, "refuse", false, 0, false},
    {Fault::Lose, "lose", false, 0, true},
    {Fault::Double, "double", false, 0, true},
    {Fault::Garble, "garble", false, 0, true},
    {Fault::Cut, "cut", false, 0, true},
    {Fault::Repeat, "repeat", false, 0, true},
    {Fault::Length, "length", true, 0, true},
    {Fault::OtherLetter, "other-letter", false, 0, false},
    {Fault::Slow, "slow", true, 1000, true},
    {Fault::Late, "late", true, 5500, false},
});

inline constexpr char AnyCommand = '*';
inline constexpr char StreamLetter = 'D';
inline constexpr int Forever = -1;

// One order to misbehave: on frames of that letter (a command, AnyCommand, or the stream's), from the `skip`th further
// one on, `left` times.
struct Order {
    Fault fault = Fault::Silence;
    int amount = 0;
    char letter = AnyCommand;
    int skip = 0;
    int left = 1;
};

// What is to happen to one frame; all orders that fit it add up.
struct Fate {
    bool silent = false;
    bool refused = false;
    int delay = 0;                                // milliseconds
    std::vector<std::pair<Fault, int>> spoiling;  // in the order in which they were given
};

class Misbehaviours {
  public:
    static constexpr std::size_t MostOrders = 100;

    bool Add(const Order& order);  // false when there are too many already
    void Clear() { orders_.clear(); }
    std::size_t Size() const { return orders_.size(); }
    // Counts the frame against every order that fits it, and says what becomes of it.
    Fate Next(char letter);

  private:
    std::vector<Order> orders_;
};

// The frame as it leaves the unit, spoilt in the ways asked for.
std::string Spoil(std::string frame, const Fate& fate, Random& dice);

}  // namespace sim
