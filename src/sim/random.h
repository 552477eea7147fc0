#pragma once

#include <cstdint>

namespace sim {

// A small generator (xorshift) whose figures are the same on every machine, so that a seed makes a run repeat.
class Random {
  public:
    explicit Random(std::uint32_t seed) : state_(seed == 0 ? 1 : seed) {}

    std::uint32_t Next() {
        state_ ^= state_ << 13U;
        state_ ^= state_ >> 17U;
        state_ ^= state_ << 5U;
        return state_;
    }
    // 0 to n - 1; n at least 1.
    int Below(int n) { return static_cast<int>(Next() % static_cast<std::uint32_t>(n)); }
    // -1 to 1, evenly.
    double Spread() { return static_cast<double>(Next()) / 2147483647.5 - 1.0; }

  private:
    std::uint32_t state_;
};

}  // namespace sim
