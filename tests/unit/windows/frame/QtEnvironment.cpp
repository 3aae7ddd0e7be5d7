// One QApplication, without a screen, for all tests of the windows.
#include <gtest/gtest.h>

#include <QApplication>

#include <array>
#include <memory>

namespace {

class QtEnvironment : public testing::Environment {
public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        application_ = std::make_unique<QApplication>(argc_, argv_.data());
        QApplication::setStyle("Fusion");
    }
    void TearDown() override { application_.reset(); }

private:
    int argc_ = 1;
    std::array<char, 8> name_{"velorin"};
    std::array<char*, 2> argv_{name_.data(), nullptr};
    std::unique_ptr<QApplication> application_;
};

[[maybe_unused]] const auto* const registered =
    testing::AddGlobalTestEnvironment(new QtEnvironment); // owned by the test framework

} // namespace
