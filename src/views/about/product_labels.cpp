// SPDX-License-Identifier: MIT
#include "views/about/product_labels.h"

#include "app/state/product_constants.h"
#include "views/common/fonts.h"

#include <QFontMetrics>
#include <algorithm>

namespace dwellkey {
namespace {

/// Thin faces know fewer letters than the others, and their gaps are not filled from elsewhere.
QFont::Weight weightThatHas(const QString& text, SystemFont size, QFont::Weight wanted) {
    const QFontMetrics face(fontFor(size, wanted));
    return std::ranges::all_of(text, [&](QChar letter) { return face.inFont(letter); })
               ? wanted
               : QFont::Normal;
}

} // namespace

GrayLine::GrayLine(const QString& text, SystemFont size, QFont::Weight weight, QWidget* parent)
    : SecondaryLabel(text, size, parent, weightThatHas(text, size, weight)) {
    setWordWrap(false);
}

DwellkeyVersion::DwellkeyVersion(QWidget* parent)
    : GrayLine(tr("Version %1").arg(QString::fromStdString(appVersion())), SystemFont{18},
               QFont::ExtraLight, parent) {}

DwellkeyCopyright::DwellkeyCopyright(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setText(QStringLiteral("© %1 The Dwellkey developers").arg(copyrightYear()));
}

} // namespace dwellkey
