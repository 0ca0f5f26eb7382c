// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace dwellkey {

/// Two screens side by side, the first one the primary.
inline constexpr QRect primaryScreen(0, 0, 1000, 700);
inline constexpr QRect secondScreen(1000, 0, 800, 600);

/// The toolkit, started by the first case that needs it and shared by the others.
class OffscreenToolkit {
public:
    OffscreenToolkit() {
        QFile file(folder_.filePath(QStringLiteral("screens.json")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
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

private:
    QTemporaryDir folder_;
    int argumentCount_ = 1;
    char name_[6] = "views";
    char* arguments_[2] = {name_, nullptr};
    std::unique_ptr<QApplication> application_;
};

class ViewTest : public testing::Test {
protected:
    ViewTest() { static const OffscreenToolkit toolkit; }
};

} // namespace dwellkey
