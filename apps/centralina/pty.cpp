#include "pty.h"

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>  // NOLINT(modernize-deprecated-headers): the pseudo-terminal functions are POSIX's
#include <termios.h>
#include <unistd.h>

#include <array>

namespace {

// A device that has never been open looks as if it were in use, and echoes until it is raw.
bool MakeRaw(const std::string& device) {
    const int slave = ::open(device.c_str(), O_RDWR | O_NOCTTY);
    if (slave < 0) return false;
    termios settings{};
    bool raw = ::tcgetattr(slave, &settings) == 0;
    if (raw) {
        settings.c_iflag = 0;
        settings.c_oflag = 0;
        settings.c_lflag = 0;
        settings.c_cflag = CS8 | CREAD | CLOCAL;
        settings.c_cc[VMIN] = 1;
        settings.c_cc[VTIME] = 0;
        ::cfsetispeed(&settings, B38400);
        ::cfsetospeed(&settings, B38400);
        raw = ::tcsetattr(slave, TCSANOW, &settings) == 0;
    }
    ::close(slave);
    return raw;
}

}  // namespace

Pty::~Pty() {
    if (master_ >= 0) ::close(master_);
}

bool Pty::Open() {
    master_ = ::posix_openpt(O_RDWR | O_NOCTTY);
    if (master_ < 0 || ::grantpt(master_) != 0 || ::unlockpt(master_) != 0) return false;
    const char* const name = ::ptsname(master_);
    if (name == nullptr || ::fcntl(master_, F_SETFL, O_NONBLOCK) != 0) return false;
    device_ = name;
    return MakeRaw(device_);
}

bool Pty::InUse() const {
    pollfd look{master_, 0, 0};
    return ::poll(&look, 1, 0) >= 0 && (look.revents & POLLHUP) == 0;
}

void Pty::SetConnected(bool connected) {
    connected_ = connected;
    if (!connected) waiting_.clear();
}

void Pty::Write(std::string_view bytes) {
    if (!connected_) return;
    if (!InUse()) {
        waiting_.clear();
        return;
    }
    if (waiting_.size() + bytes.size() <= MostWaiting) waiting_ += bytes;
    Flush();
}

void Pty::Flush() {
    while (!waiting_.empty()) {
        const ssize_t written = ::write(master_, waiting_.data(), waiting_.size());
        if (written <= 0) return;
        waiting_.erase(0, static_cast<std::size_t>(written));
    }
}

void Pty::Receive() {
    std::array<char, 4096> buffer{};
    while (true) {
        const ssize_t count = ::read(master_, buffer.data(), buffer.size());
        if (count <= 0) return;
        if (connected_ && receiver_) receiver_(std::string_view(buffer.data(), static_cast<std::size_t>(count)));
    }
}
