#pragma once

#include <functional>
#include <string>
#include <string_view>

// Lines from a file descriptor, read only when it has something to read, so that nothing waits for it.
class CommandInput {
  public:
    using Handler = std::function<void(std::string_view line)>;

    explicit CommandInput(int descriptor) : descriptor_(descriptor) {}
    int Descriptor() const { return descriptor_; }
    // Reads what is there and hands over every whole line; false at the end of the input (a last line without an end
    // counts). A line beyond the limit is cut there.
    bool Read(const Handler& handler);

  private:
    static constexpr std::size_t LongestLine = 1U << 17U;
    int descriptor_;
    std::string text_;
};
