// SPDX-License-Identifier: MIT
#include "platform/qt/qt_localizer.h"

#include <QCoreApplication>

namespace dwellkey {

std::string QtLocalizer::localized(const char* context, const char* text) const {
    return QCoreApplication::translate(context, text).toStdString();
}

} // namespace dwellkey
