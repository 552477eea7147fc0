#pragma once

#include <string>

namespace platform {

// What can be seen of a serial device from outside, without opening it.
struct PortFacts {
    bool present = true;
    bool permitted = true;
    std::string group;  // the group that owns the device, for the remedy; may be empty
    std::string user;   // who runs this program
};

class PortProbe {
  public:
    virtual ~PortProbe() = default;
    virtual PortFacts Look(const std::string& device) = 0;
    // Name of the other program that holds the device open; empty when nobody does. Goes through the open files of all
    // programs: for a port that has failed alone.
    virtual std::string HolderOf(const std::string& device) = 0;
};

}  // namespace platform
