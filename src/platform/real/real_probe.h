#pragma once

#include "platform/port_probe.h"

namespace platform::real {

// Looks at a serial device without opening it: its entry in the file system, the rights on it and, on Linux, the open
// files of the other programs as far as this user may see them. Elsewhere every device counts as present, permitted and
// free, and only opening it tells.
class RealProbe : public PortProbe {
  public:
    PortFacts Look(const std::string& device) override;
    std::string HolderOf(const std::string& device) override;
};

}  // namespace platform::real
