#include "sim/misbehaviour.h"

#include <algorithm>

#include "sim/bytes.h"

namespace sim {

namespace {

constexpr std::size_t Frame = 2;               // STX and ETX
constexpr std::size_t LongestRepeated = 8192;  // however many orders add up
constexpr char Filler = '0';
constexpr char FirstPrintable = ' ';
constexpr int Printables = '~' - ' ' + 1;
constexpr std::string_view ReplyLetters = "rwliosxp";

std::size_t BodyPlace(const std::string& frame, Random& dice) {
    return 1 + static_cast<std::size_t>(dice.Below(static_cast<int>(frame.size() - Frame)));
}

std::string OtherLetter(std::string frame) {
    const std::size_t place = ReplyLetters.find(frame[1]);
    frame[1] = place == std::string_view::npos ? ReplyLetters.front() : ReplyLetters[(place + 1) % ReplyLetters.size()];
    return frame;
}

std::string OfLength(std::string frame, int amount) {
    const std::size_t length = amount > 0 ? static_cast<std::size_t>(amount) : frame.size() - 1;
    if (length <= frame.size()) {
        frame.erase(std::max<std::size_t>(1, std::min(length, frame.size()) - 1));
    } else {
        frame.pop_back();
        frame.append(length - 1 - frame.size(), Filler);
    }
    return frame + Etx;
}

char Another(char c, Random& dice) {
    const char drawn = static_cast<char>(FirstPrintable + dice.Below(Printables));
    if (drawn != c) return drawn;
    return drawn == FirstPrintable ? '~' : FirstPrintable;
}

std::string SpoilOnce(std::string frame, Fault fault, int amount, Random& dice) {
    if (frame.size() <= Frame) return frame;
    switch (fault) {
        case Fault::Lose:
            frame.erase(BodyPlace(frame, dice), 1);
            return frame;
        case Fault::Double: {
            const std::size_t at = BodyPlace(frame, dice);
            frame.insert(at, 1, frame[at]);
            return frame;
        }
        case Fault::Garble: {
            const std::size_t at = BodyPlace(frame, dice);
            frame[at] = Another(frame[at], dice);
            return frame;
        }
        case Fault::Cut:
            frame.resize(frame.size() / 2);
            return frame;
        case Fault::Repeat:
            return frame.size() > LongestRepeated ? frame : frame + frame;
        case Fault::Length:
            return OfLength(std::move(frame), amount);
        case Fault::OtherLetter:
            return OtherLetter(std::move(frame));
        case Fault::Silence:
        case Fault::Refuse:
        case Fault::Slow:
        case Fault::Late:
            return frame;
    }
    return frame;
}

bool Fits(const Order& order, char letter) {
    return order.letter == letter || (order.letter == AnyCommand && letter != StreamLetter);
}

void AddTo(Fate& fate, const Order& order) {
    switch (order.fault) {
        case Fault::Silence:
            fate.silent = true;
            return;
        case Fault::Refuse:
            fate.refused = true;
            return;
        case Fault::Slow:
        case Fault::Late:
            fate.delay = std::max(fate.delay, order.amount);
            return;
        default:
            fate.spoiling.emplace_back(order.fault, order.amount);
    }
}

}  // namespace

bool Misbehaviours::Add(const Order& order) {
    if (orders_.size() == MostOrders) return false;
    orders_.push_back(order);
    return true;
}

Fate Misbehaviours::Next(char letter) {
    Fate fate;
    for (Order& order : orders_) {
        if (!Fits(order, letter)) continue;
        if (order.skip > 0) {
            --order.skip;
            continue;
        }
        AddTo(fate, order);
        if (order.left > 0) --order.left;
    }
    std::erase_if(orders_, [](const Order& order) { return order.left == 0; });
    return fate;
}

std::string Spoil(std::string frame, const Fate& fate, Random& dice) {
    for (const auto& [fault, amount] : fate.spoiling) frame = SpoilOnce(std::move(frame), fault, amount, dice);
    return frame;
}

}  // namespace sim
