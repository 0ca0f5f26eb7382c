// SPDX-License-Identifier: MIT
#include "look.h"

#include "platform/qt/qt_translations.h"
#include "pseudo_translator.h"

#include <QApplication>
#include <QFont>
#include <QIcon>
#include <QPalette>
#include <QStyleFactory>

#include <memory>
#include <vector>

namespace dwellkey {
namespace {

struct Colours {
    QRgb window, base, button, text, highlight;
};
constexpr Colours light{0xfff6f5f4, 0xffffffff, 0xfff6f5f4, 0xff1e1e1e, 0xff3584e4};
constexpr Colours dark{0xff2d2d2d, 0xff1e1e1e, 0xff3a3a3a, 0xfff2f2f2, 0xff3584e4};
constexpr Colours highContrast{0xff000000, 0xff000000, 0xff000000, 0xffffffff, 0xffffff00};

QPalette paletteOf(const Colours& colours) {
    QPalette palette(QColor::fromRgb(colours.button), QColor::fromRgb(colours.window));
    const QColor text = QColor::fromRgb(colours.text);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, text);
    }
    QColor faint = text;
    faint.setAlphaF(0.5F);
    palette.setColor(QPalette::PlaceholderText, faint);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, faint);
    }
    palette.setColor(QPalette::Base, QColor::fromRgb(colours.base));
    palette.setColor(QPalette::AlternateBase, QColor::fromRgb(colours.window));
    palette.setColor(QPalette::ToolTipBase, QColor::fromRgb(colours.base));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::Highlight, QColor::fromRgb(colours.highlight));
    palette.setColor(QPalette::HighlightedText,
                     qGray(colours.highlight) > 160 ? Qt::black : Qt::white);
    return palette;
}

/// For as long as the process lives.
void speak(const QString& name) {
    static std::vector<std::unique_ptr<QTranslator>> invented;
    static std::unique_ptr<QtTranslations> real;
    if (name == QLatin1String("double-length")) {
        invented.push_back(std::make_unique<DoubleLengthTranslator>());
    } else if (name == QLatin1String("right-to-left")) {
        invented.push_back(std::make_unique<RightToLeftTranslator>());
    } else if (name == QLatin1String("german")) {
        real = std::make_unique<QtTranslations>(QStringList{QStringLiteral("de")});
    } else if (name == QLatin1String("portuguese")) {
        real = std::make_unique<QtTranslations>(QStringList{QStringLiteral("pt-BR")});
    }
    for (const auto& translator : invented) {
        QApplication::installTranslator(translator.get());
    }
}

} // namespace

QStringList lookNames() {
    return {QStringLiteral("light"),         QStringLiteral("dark"),
            QStringLiteral("high-contrast"), QStringLiteral("scale-2"),
            QStringLiteral("german"),        QStringLiteral("portuguese"),
            QStringLiteral("right-to-left"), QStringLiteral("double-length")};
}

void prepareLook(const QString& name) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", name == QLatin1String("scale-2") ? "2" : "1");
}

void applyLook(const QString& name) {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const bool isDark = name == QLatin1String("dark");
    const bool isHighContrast = name == QLatin1String("high-contrast");
    QApplication::setPalette(paletteOf(isDark ? dark : isHighContrast ? highContrast : light));
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 10));
    QIcon::setThemeSearchPaths({QStringLiteral("/usr/share/icons")}); // no desktop says so
    QIcon::setThemeName(QStringLiteral("Adwaita"));
    speak(name);
}

} // namespace dwellkey
