#include <QApplication>
#include <memory>

#include <gtest/gtest.h>

namespace {

/// Made when tests run, not when they are listed: listing must work where Qt finds no display.
class QtForTests : public ::testing::Environment {
public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        application_ = std::make_unique<QApplication>(count_, arguments_);
    }
    void TearDown() override { application_.reset(); }

private:
    int count_ = 1;
    char name_[9] = "ui_tests";
    char* arguments_[2] = {name_, nullptr};
    std::unique_ptr<QApplication> application_;
};

}  // namespace

int main(int count, char** arguments) {
    ::testing::InitGoogleTest(&count, arguments);
    ::testing::AddGlobalTestEnvironment(new QtForTests);
    return RUN_ALL_TESTS();
}
