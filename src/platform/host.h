#pragma once

#include "platform/clock.h"
#include "platform/files.h"
#include "platform/instance.h"
#include "platform/port_probe.h"
#include "platform/serial_port.h"
#include "platform/sound.h"
#include "platform/timer.h"

namespace platform {

// All that the program asks of the machine it runs on. The host outlives the program.
struct Host {
    Clock& clock;
    Timers& timers;
    SerialPort& port;
    PortProbe& probe;
    Files& files;
    Sound& sound;
    Instance& instance;
};

}  // namespace platform
