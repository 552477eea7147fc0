#pragma once

#include <functional>
#include <string_view>

namespace platform {

// The far side of a line, where the ECU is: bytes go out as they are written and come in whenever they arrive.
class LineEnd {
  public:
    using Receiver = std::function<void(std::string_view)>;

    virtual ~LineEnd() = default;
    virtual void Write(std::string_view bytes) = 0;
    // Called with each piece that arrives; pieces need not be whole frames.
    virtual void SetReceiver(Receiver receiver) = 0;
    // A pulled cable carries nothing in either direction.
    virtual void SetConnected(bool connected) = 0;
    virtual bool Connected() const = 0;
};

}  // namespace platform
