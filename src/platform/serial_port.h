#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace platform {

// The one value of the port's event that means that data has arrived.
inline constexpr int EventReceived = 2;

// Why the device of a port does not work now.
enum class PortFault {
    None,
    Absent,   // there is no such device, or it has been pulled out
    Refused,  // the system does not give it: no rights, or another program holds it
    Failed,   // it cannot be set as the settings say, or is no serial line
};

// An asynchronous serial line. Nothing is thrown; an operation that cannot be done answers false.
// A device that vanishes while open is silence: PortOpen stays true, Output answers false, and the line works again by
// itself when the device comes back.
class SerialPort {
  public:
    using Event = std::function<void(int)>;

    virtual ~SerialPort() = default;
    // The device that Open will take, for example "/dev/ttyUSB0" or "COM3".
    virtual void SetDevice(const std::string& device) = 0;
    virtual std::string Device() const = 0;
    // "38400,N,8,1": speed, parity letter N, E or O, data bits 5 to 8, stop bits 1, 1.5 or 2. Anything else, also a
    // text that lacks a field, is refused and leaves the settings as they were.
    virtual bool SetSettings(std::string_view settings) = 0;
    virtual std::string Settings() const = 0;
    virtual bool Open() = 0;
    virtual void Close() = 0;
    virtual bool PortOpen() const = 0;
    // Of the last opening, and of a device that has vanished since, of the last look for it; None while it works.
    virtual PortFault Fault() const = 0;
    // Everything received so far; taken out of the port by the call.
    virtual std::string Input() = 0;
    virtual bool Output(std::string_view bytes) = 0;
    // Drops what the port has received and nobody has fetched.
    virtual void ClearInput() = 0;
    virtual void SetEvent(Event event) = 0;
};

// One line's settings, read from the text above.
struct LineSettings {
    long baud = 0;
    char parity = 'N';
    int dataBits = 8;
    int halfStopBits = 2;  // stop bits in halves: 2, 3 or 4
};

// Reads "38400,N,8,1"; false when a field is missing or not one of the values a line can have.
bool ReadLineSettings(std::string_view text, LineSettings& settings);

}  // namespace platform
