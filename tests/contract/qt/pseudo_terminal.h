#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace contract {

// A device made of a pseudo-terminal, under a name that stays the same when it is pulled out and another comes back.
class PseudoTerminal {
  public:
    PseudoTerminal();
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    std::string Device() const { return (folder_ / "device").string(); }
    void Write(std::string_view bytes);
    std::string Received();    // everything since the last call
    bool TwoStopBits() const;  // as whoever opened the device has set it
    void Vanish();
    void Return();

  private:
    std::filesystem::path folder_;
    int master_ = -1;
};

}  // namespace contract
