// SPDX-License-Identifier: MIT
#pragma once

#include "platform/session.h"
#include "platform/windows.h"

#include <functional>
#include <map>
#include <string>

namespace dwellkey {

/// Windows by identifier. Declaring one costs nothing until it is opened.
class QtWindowHost final : public WindowHost {
public:
    explicit QtWindowHost(ErrorLog& errorLog) : errorLog_(errorLog) {}

    /// `openOrBringForward` runs on every open.
    void declare(std::string identifier, std::function<void()> openOrBringForward);

    void open(std::string_view identifier) override;

private:
    ErrorLog& errorLog_;
    std::map<std::string, std::function<void()>, std::less<>> windows_;
};

} // namespace dwellkey
