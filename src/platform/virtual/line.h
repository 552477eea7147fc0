#pragma once

#include <cstdint>
#include <string>

#include "platform/line_end.h"
#include "platform/serial_port.h"
#include "platform/virtual/world.h"

namespace platform::virt {

// How bytes cross the in-memory line.
enum class Pace {
    AtOnce,      // a written piece arrives whole, in the same instant
    ByteByByte,  // each byte arrives by itself, in the same instant
    BaudRate,    // each byte takes its ten bits at the speed that the port is set to
};

// An in-memory serial line on virtual time: the program holds the port, the simulated ECU (or a test) the far end.
class Line {
  public:
    explicit Line(World& world);

    SerialPort& Port() { return port_; }
    LineEnd& Far() { return far_; }
    void SetPace(Pace pace) { pace_ = pace; }

    // Faults, for tests: a port that does not open (None: it does), a device that is gone.
    void RefuseOpening(PortFault fault) { refusal_ = fault; }
    void SetPresent(bool present) { present_ = present; }
    const std::string& Sent() const { return sent_; }  // all that the program has written since the start
    void ForgetSent() { sent_.clear(); }

  private:
    class Port_ : public SerialPort {
      public:
        explicit Port_(Line& line) : line_(line) {}
        void SetDevice(const std::string& device) override { device_ = device; }
        std::string Device() const override { return device_; }
        bool SetSettings(std::string_view settings) override;
        std::string Settings() const override { return settings_; }
        bool Open() override;
        void Close() override { open_ = false; }
        bool PortOpen() const override { return open_; }
        PortFault Fault() const override;
        std::string Input() override;
        bool Output(std::string_view bytes) override;
        void ClearInput() override { received_.clear(); }
        void SetEvent(Event event) override { event_ = std::move(event); }
        void Receive(std::string_view bytes);
        long Baud() const { return line_settings_.baud; }

      private:
        Line& line_;
        std::string device_;
        std::string settings_;
        std::string received_;
        LineSettings line_settings_;
        Event event_;
        bool open_ = false;
        PortFault fault_ = PortFault::None;  // of the last opening
    };
    class Far_ : public LineEnd {
      public:
        explicit Far_(Line& line) : line_(line) {}
        void Write(std::string_view bytes) override;
        void SetReceiver(Receiver receiver) override { receiver_ = std::move(receiver); }
        void SetConnected(bool connected) override { connected_ = connected; }
        bool Connected() const override { return connected_; }
        void Receive(std::string_view bytes);

      private:
        Line& line_;
        Receiver receiver_;
        bool connected_ = true;
    };

    bool Carries() const { return far_.Connected() && present_; }
    // Hands the bytes to `deliver` at the line's pace; `busyUntil` is the direction's own clock.
    template <class Deliver>
    void Carry(std::string_view bytes, std::int64_t& busyUntil, Deliver deliver);

    World& world_;
    Port_ port_{*this};
    Far_ far_{*this};
    Pace pace_ = Pace::AtOnce;
    std::string sent_;
    std::int64_t toPort_ = 0;
    std::int64_t toFar_ = 0;
    PortFault refusal_ = PortFault::None;
    bool present_ = true;
};

}  // namespace platform::virt
