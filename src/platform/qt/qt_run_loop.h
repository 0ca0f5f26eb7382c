// SPDX-License-Identifier: MIT
#pragma once

#include "platform/run_loop.h"

#include <QObject>

namespace dwellkey {

/// The toolkit's event loop. Needs a QCoreApplication.
class QtRunLoop final : public RunLoop, public Clock {
public:
    [[nodiscard]] Subscription repeat(std::chrono::nanoseconds interval,
                                      std::function<void()> tick) override;
    void post(std::function<void()> task) override;
    [[nodiscard]] Subscription watch(int descriptor, std::function<void()> readable) override;

    [[nodiscard]] std::chrono::nanoseconds now() const override;

private:
    QObject context_; // posted tasks die with it
};

} // namespace dwellkey
