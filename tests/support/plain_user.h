#pragma once

#ifndef _WIN32

#include <unistd.h>

namespace support {

// For its lifetime a test that was started by root has the rights of nobody, since nothing is forbidden to root.
class PlainUser {
  public:
    PlainUser() : changed_(geteuid() == 0 && setresuid(Nobody, Nobody, 0) == 0) {}
    ~PlainUser() {
        if (changed_ && setresuid(0, 0, 0) != 0) _exit(1);
    }
    PlainUser(const PlainUser&) = delete;
    PlainUser& operator=(const PlainUser&) = delete;
    // False where neither is possible: in a container that knows of root alone.
    static bool Holds() { return geteuid() != 0; }

  private:
    static constexpr uid_t Nobody = 65534;
    bool changed_;
};

}  // namespace support

#endif
