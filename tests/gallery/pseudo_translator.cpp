// SPDX-License-Identifier: MIT
#include "pseudo_translator.h"

#include <QLatin1String>

namespace dwellkey {
namespace {

/// A text that is no words: the toolkit asks the translation which way it runs.
constexpr QLatin1String directionQuestion("QT_LAYOUT_DIRECTION");

/// Places for arguments are filled once, and a window has one mnemonic of a kind.
QString withoutPlaces(QString text) {
    for (const char* place : {"%1", "%2", "%n", "&"}) {
        text.remove(QLatin1String(place));
    }
    return text;
}

QChar hebrew(QChar letter) {
    constexpr ushort alef = 0x05D0;
    constexpr ushort letterCount = 22;
    return QChar(static_cast<ushort>(alef + (letter.toLower().unicode() - 'a') % letterCount));
}

} // namespace

QString DoubleLengthTranslator::translate(const char* /*context*/, const char* source,
                                          const char* /*disambiguation*/, int /*n*/) const {
    const QString text = QString::fromUtf8(source);
    return text == directionQuestion ? QString() : text + QLatin1Char(' ') + withoutPlaces(text);
}

QString RightToLeftTranslator::translate(const char* /*context*/, const char* source,
                                         const char* /*disambiguation*/, int /*n*/) const {
    QString text = QString::fromUtf8(source);
    if (text == directionQuestion) {
        return QStringLiteral("RTL");
    }
    for (QChar& letter : text) {
        if (letter.isLetter() && letter.unicode() < 0x80) {
            letter = hebrew(letter);
        }
    }
    return text;
}

} // namespace dwellkey
