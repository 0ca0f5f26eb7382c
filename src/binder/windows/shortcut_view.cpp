// SPDX-License-Identifier: MIT
#include "binder/windows/shortcut_view.h"

#include "binder/defaults_shortcut.h"
#include "keycommands/recorder/key_recorder_view.h"
#include "platform/shortcut_binder.h"

#include <QVBoxLayout>
#include <memory>

namespace dwellkey {

ShortcutView::ShortcutView(QWidget* parent) : QWidget(parent) {
    auto* frame = new QVBoxLayout(this);
    frame->setContentsMargins(0, 0, 0, 0);
}

void ShortcutView::setAssociatedUserDefaultsKey(const std::string& defaultsKey,
                                                Platform& platform) {
    auto* recorder =
        new KeyRecorderView(std::make_unique<DefaultsShortcut>(platform.userDefaults, defaultsKey,
                                                               ShortcutBinder::sharedBinder()),
                            platform, this);
    recorder->setAccessibleName(accessibleName());
    layout()->addWidget(recorder);
    setFocusProxy(recorder);
}

} // namespace dwellkey
