// SPDX-License-Identifier: MIT
// Languages nobody speaks, which show what a real one would break.
#pragma once

#include <QTranslator>

namespace dwellkey {

/// Says everything twice: longer than any language.
class DoubleLengthTranslator final : public QTranslator {
public:
    [[nodiscard]] QString translate(const char* context, const char* source,
                                    const char* disambiguation, int n) const override;
    [[nodiscard]] bool isEmpty() const override { return false; }
};

/// Every text in Hebrew letters, so that windows and lines of text run from right to left.
class RightToLeftTranslator final : public QTranslator {
public:
    [[nodiscard]] QString translate(const char* context, const char* source,
                                    const char* disambiguation, int n) const override;
    [[nodiscard]] bool isEmpty() const override { return false; }
};

} // namespace dwellkey
