#pragma once

#include <string>

namespace platform {

// What can be seen of a serial device from outside, without opening it.
struct PortFacts {
    bool present = true;
    bool permitted = true;
    std::string group;   // the group that owns the device, for the remedy; may be empty
    std::string user;    // who runs this program
    std::string busyBy;  // name of the other program that holds the device open; empty when nobody does
};

class PortProbe {
  public:
    virtual ~PortProbe() = default;
    virtual PortFacts Look(const std::string& device) = 0;
};

}  // namespace platform
