#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/serial_port.h"

namespace contract {

// A line whose near side, the port, is put to the test; the machine plays the unit at the far side.
class PortMachine {
  public:
    virtual ~PortMachine() = default;
    virtual platform::SerialPort& Port() = 0;
    virtual std::string Device() const = 0;
    virtual void FarWrites(std::string_view bytes) = 0;
    virtual std::string FarReceived() = 0;  // everything since the last call
    virtual void Vanish() = 0;              // the device is pulled out
    virtual void Return() = 0;
    // Lets time pass until `done` answers true; false when it has not within a few seconds of the machine's time.
    virtual bool RunUntil(const std::function<bool()>& done) = 0;
    virtual void RunShortly() = 0;  // long enough for anything under way to arrive
};

using MakePortMachine = std::function<std::unique_ptr<PortMachine>()>;

class PortContract : public ::testing::TestWithParam<MakePortMachine> {
  protected:
    PortContract();
    void OpenPort();
    bool Heard(std::string_view text);     // by the program
    bool FarHeard(std::string_view text);  // by the unit

    std::unique_ptr<PortMachine> machine_ = GetParam()();
    platform::SerialPort& port_ = machine_->Port();
    std::string received_;
    std::string farReceived_;
    int events_ = 0;
};

}  // namespace contract
