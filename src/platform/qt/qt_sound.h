#pragma once

#include "platform/sound.h"

namespace platform::qt {

// The bell of the desktop; silence in a program without windows.
class QtSound : public Sound {
  public:
    void Beep() override;
};

}  // namespace platform::qt
