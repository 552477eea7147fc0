#pragma once

#include <QObject>
#include <QSerialPort>
#include <QTimer>
#include <cstddef>
#include <string>

#include "platform/qt/after_event.h"
#include "platform/serial_port.h"

namespace platform::qt {

// A serial device of this machine. Nothing here waits: bytes are handed to the driver and fetched from it by the event
// loop. While the device is gone its return is looked for every `retryMillis`.
class QtPort : public SerialPort {
  public:
    static constexpr int RetryMillis = 1000;

    explicit QtPort(const AfterEvent& after, int retryMillis = RetryMillis);
    ~QtPort() override;
    QtPort(const QtPort&) = delete;
    QtPort& operator=(const QtPort&) = delete;

    void SetDevice(const std::string& device) override { device_ = device; }
    std::string Device() const override { return device_; }
    // Takes effect at the next Open.
    bool SetSettings(std::string_view settings) override;
    std::string Settings() const override { return settings_; }
    // Closes the port first when it is open. False when the device is missing, forbidden or held by another program, or
    // cannot be set as the settings say.
    bool Open() override;
    void Close() override;
    bool PortOpen() const override { return open_; }
    PortFault Fault() const override { return fault_; }
    std::string Input() override;
    // False also when the device has taken nothing for so long that 64 KiB wait for it.
    bool Output(std::string_view bytes) override;
    void ClearInput() override;
    void SetEvent(Event event) override { event_ = std::move(event); }

  private:
    bool OpenDevice();
    void CloseDevice();
    void Receive();
    void Fail(QSerialPort::SerialPortError error);
    void Vanish();
    void LookForReturn();

    const AfterEvent& after_;
    std::string device_;
    std::string settings_;
    LineSettings lineSettings_;
    std::string received_;
    std::size_t dropped_ = 0;  // so many of the next bytes were still with the driver when they were dropped
    Event event_;
    bool open_ = false;
    PortFault fault_ = PortFault::None;
    QSerialPort port_;
    QTimer loss_;
    QTimer retry_;
};

}  // namespace platform::qt
