// SPDX-License-Identifier: MIT
#include "views/about/about_view.h"

#include "views/about/icon_picture.h"
#include "views/about/product_labels.h"
#include "views/about/support_button.h"
#include "views/common/icons.h"

#include <QBoxLayout>
#include <QGridLayout>

namespace dwellkey {
namespace {

constexpr QSize defaultSize(435, 185);
constexpr int padding = 10;
constexpr int iconSide = 130;
constexpr SystemFont nameFont{50};

/// Each line is as wide as its text, so that it stands at the leading edge in every language.
QBoxLayout* textStack(Platform& platform) {
    auto* stack = new QVBoxLayout;
    const QString name = QString::fromLatin1(productName);
    stack->addWidget(new GrayLine(name, nameFont, QFont::Thin), 0, Qt::AlignLeading);
    stack->addWidget(new DwellkeyVersion, 0, Qt::AlignLeading);
    stack->addSpacing(2);
    stack->addWidget(new DwellkeyCopyright, 0, Qt::AlignLeading);
    stack->addSpacing(8);
    stack->addWidget(new SupportButton(platform), 0, Qt::AlignTrailing);
    return stack;
}

} // namespace

AboutView::AboutView(Platform& platform) : FixedWindow(tr("About")) {
    auto* row = new QHBoxLayout;
    row->setSpacing(padding);
    row->addWidget(new IconPicture({applicationIconName}, iconSide), 0, Qt::AlignTop);
    row->addLayout(textStack(platform), 1);
    row->setAlignment(row->itemAt(1)->layout(), Qt::AlignTop);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(padding, padding, padding, padding);
    grid->setColumnMinimumWidth(0, defaultSize.width() - 2 * padding);
    grid->setRowMinimumHeight(0, defaultSize.height() - 2 * padding);
    grid->addLayout(row, 0, 0, Qt::AlignVCenter);
}

} // namespace dwellkey
