#pragma once

#include "platform/host.h"
#include "platform/qt/after_event.h"
#include "platform/qt/qt_port.h"
#include "platform/qt/qt_sound.h"
#include "platform/qt/qt_timers.h"
#include "platform/real/instance_lock.h"
#include "platform/real/real_files.h"
#include "platform/real/real_probe.h"
#include "platform/real/system_clock.h"

namespace platform::qt {

// The real machine, for a program with an event loop of Qt. A QCoreApplication must exist before it.
struct QtHost {
    Host Get() { return Get(port, probe); }
    // The same with another line behind the program, as the simulated unit needs it.
    Host Get(SerialPort& otherPort, PortProbe& otherProbe) {
        return {clock, timers, otherPort, otherProbe, files, sound, instance};
    }

    AfterEvent after;
    real::SystemClock clock;
    QtTimers timers{after};
    QtPort port{after};
    real::RealProbe probe;
    real::RealFiles files;
    QtSound sound;
    real::InstanceLock instance;
};

}  // namespace platform::qt
