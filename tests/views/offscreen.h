// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace dwellkey {

/// Two screens side by side, the first one the primary.
inline constexpr QRect primaryScreen(0, 0, 1000, 700);
inline constexpr QRect secondScreen(1000, 0, 800, 600);

/// The toolkit, for as long as the cases run: at the exit its own statics are gone before ours.
class OffscreenToolkit final : public testing::Environment {
public:
    void SetUp() override {
        QFile file(folder_.filePath(QStringLiteral("screens.json")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(R"({"screens": [
            {"name": "one", "x": 0, "y": 0, "width": 1000, "height": 700, "logicalDpi": 96,
             "logicalBaseDpi": 96, "dpr": 1},
            {"name": "two", "x": 1000, "y": 0, "width": 800, "height": 600, "logicalDpi": 96,
             "logicalBaseDpi": 96, "dpr": 1}]})");
        file.close();
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + file.fileName().toUtf8());
        application_ = std::make_unique<QApplication>(argumentCount_, arguments_);
        QApplication::setQuitOnLastWindowClosed(false);
    }
    void TearDown() override { application_.reset(); }

private:
    QTemporaryDir folder_;
    int argumentCount_ = 1;
    char name_[6] = "views";
    char* arguments_[2] = {name_, nullptr};
    std::unique_ptr<QApplication> application_;
};

inline testing::Environment* const offscreenToolkit =
    testing::AddGlobalTestEnvironment(new OffscreenToolkit); // NOLINT: GoogleTest owns it

} // namespace dwellkey
