#pragma once

#include <filesystem>

namespace platform {

class Sound {
  public:
    virtual ~Sound() = default;
    // The short signal of the system. Without a sound device: silence.
    virtual void Beep() = 0;
};

}  // namespace platform
