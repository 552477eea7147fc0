#include "contract/qt/pseudo_terminal.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <array>

namespace contract {

PseudoTerminal::PseudoTerminal() {
    std::string name = (std::filesystem::temp_directory_path() / "marlovent-XXXXXX").string();
    if (mkdtemp(name.data()) != nullptr) folder_ = name;
    Return();
}

PseudoTerminal::~PseudoTerminal() {
    Vanish();
    std::error_code error;
    std::filesystem::remove_all(folder_, error);
}

void PseudoTerminal::Write(std::string_view bytes) {
    ASSERT_EQ(write(master_, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
}

std::string PseudoTerminal::Received() {
    std::array<char, 1024> buffer{};
    std::string out;
    for (ssize_t count = 0; (count = read(master_, buffer.data(), buffer.size())) > 0;) {
        out.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return out;
}

bool PseudoTerminal::TwoStopBits() const {
    termios line{};
    EXPECT_EQ(tcgetattr(master_, &line), 0);
    return (line.c_cflag & CSTOPB) != 0;
}

void PseudoTerminal::Vanish() {
    std::error_code error;
    std::filesystem::remove(Device(), error);
    if (master_ >= 0) close(master_);
    master_ = -1;
}

void PseudoTerminal::Return() {
    master_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    ASSERT_GE(master_, 0);
    ASSERT_EQ(grantpt(master_), 0);
    ASSERT_EQ(unlockpt(master_), 0);
    std::filesystem::create_symlink(ptsname(master_), Device());
}

}  // namespace contract
