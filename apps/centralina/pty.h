#pragma once

#include <string>
#include <string_view>

#include "platform/line_end.h"

// The unit's end of a pseudo-terminal. As on a serial line nobody is told when the other side comes and goes: what is
// written while no program has the device open is lost, and what a program does not fetch is kept up to a limit.
// Nothing waits: what the device does not take at once goes out when it has room again.
class Pty : public platform::LineEnd {
  public:
    Pty() = default;
    ~Pty() override;
    Pty(const Pty&) = delete;
    Pty& operator=(const Pty&) = delete;

    bool Open();  // a fresh device, raw, 38400 baud; false when the system gives none
    const std::string& Device() const { return device_; }
    int Descriptor() const { return master_; }

    void Write(std::string_view bytes) override;
    void SetReceiver(Receiver receiver) override { receiver_ = std::move(receiver); }
    void SetConnected(bool connected) override;
    bool Connected() const override { return connected_; }

    bool InUse() const;  // a program has the device open
    bool Pending() const { return !waiting_.empty(); }
    void Flush();    // writes what waits, as far as the device takes it
    void Receive();  // reads what is there and hands it over

  private:
    static constexpr std::size_t MostWaiting = 8192;  // bytes; more than that nobody is reading

    std::string device_;
    std::string waiting_;
    Receiver receiver_;
    int master_ = -1;
    bool connected_ = true;
};
