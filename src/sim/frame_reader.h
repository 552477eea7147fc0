#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace sim {

// Cuts what arrives on the line into the texts between STX and ETX. Pieces may split anywhere. What stands between
// frames is dropped; an STX within a frame starts it afresh; a frame beyond the limit is dropped up to the next STX.
class FrameReader {
  public:
    using Handler = std::function<void(const std::string&)>;
    static constexpr std::size_t Limit = 512;  // the longest command in use has 141 characters

    explicit FrameReader(Handler handler) : handler_(std::move(handler)) {}
    void Feed(std::string_view piece);
    void Forget();
    std::int64_t Dropped() const { return dropped_; }  // characters that belonged to no whole frame

  private:
    Handler handler_;
    std::string text_;
    bool inside_ = false;
    std::int64_t dropped_ = 0;
};

}  // namespace sim
