// SPDX-License-Identifier: MIT
// The least program that the toolkit allows: what Dwellkey's start and memory are compared with.
#include <QApplication>
#include <QTimer>
#include <chrono>
#include <iostream>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QTimer::singleShot(0, [] {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        std::cout << std::chrono::duration_cast<std::chrono::microseconds>(now).count()
                  << std::endl;
    });
    return QApplication::exec();
}
