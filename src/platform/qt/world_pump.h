#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include "platform/qt/after_event.h"
#include "platform/virtual/world.h"

namespace platform::qt {

// Lets a world of virtual time keep pace with the real one, from the moment the pump is made: it sleeps until the next
// thing is due, so that a silent unit costs nothing.
class WorldPump : private virt::World::Driver {
  public:
    WorldPump(virt::World& world, const AfterEvent& after);
    ~WorldPump() override;
    WorldPump(const WorldPump&) = delete;
    WorldPump& operator=(const WorldPump&) = delete;

  private:
    std::int64_t Micros() const override;
    void Rearm() override;
    void Run();

    virt::World& world_;
    const AfterEvent& after_;
    std::int64_t start_;
    QElapsedTimer elapsed_;
    QTimer timer_;
};

}  // namespace platform::qt
