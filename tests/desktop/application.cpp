#include <gtest/gtest.h>

#include <QApplication>
#include <memory>

#include "desktop/theme.h"

namespace {

// One application for all tests of this program: widgets need it.
class Application : public ::testing::Environment {
  public:
    void SetUp() override {
        app_ = std::make_unique<QApplication>(argc_, argv_.data());
        desktop::ApplyTheme(desktop::LightTheme());
    }
    void TearDown() override { app_.reset(); }

  private:
    std::string name_ = "test_desktop";
    std::array<char*, 2> argv_{name_.data(), nullptr};
    int argc_ = 1;
    std::unique_ptr<QApplication> app_;
};

const ::testing::Environment* const application = ::testing::AddGlobalTestEnvironment(new Application);

}  // namespace
