// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"

#include <QWidget>
#include <string>

namespace dwellkey {

/// A recorder of the shortcut that is stored under a settings key; empty until it is associated
/// with one.
class ShortcutView final : public QWidget {
    Q_OBJECT

public:
    explicit ShortcutView(QWidget* parent);

    /// At most once. The platform must outlive the view.
    void setAssociatedUserDefaultsKey(const std::string& defaultsKey, Platform& platform);
};

} // namespace dwellkey
