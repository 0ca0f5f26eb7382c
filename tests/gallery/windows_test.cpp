// SPDX-License-Identifier: MIT
// Every window in languages that are longer than ours or run the other way: nothing is cut off.
#include "offscreen.h"
#include "platform/qt/qt_translations.h"
#include "pseudo_translator.h"
#include "scenes.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QFontMetrics>
#include <QLabel>
#include <QStyle>
#include <QStyleOptionComboBox>

#include <functional>
#include <memory>

namespace dwellkey {
namespace {

bool fits(const QLabel& label) {
    if (label.wordWrap()) {
        const QFontMetrics metrics(label.font());
        for (const QString& word : label.text().split(QLatin1Char(' '))) {
            if (metrics.horizontalAdvance(word) > label.contentsRect().width()) {
                return false;
            }
        }
        return label.heightForWidth(label.width()) <= label.height();
    }
    return label.sizeHint().width() <= label.width() && label.sizeHint().height() <= label.height();
}

bool fits(const QComboBox& box) {
    QStyleOptionComboBox option;
    option.initFrom(&box);
    const QRect field = box.style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                    QStyle::SC_ComboBoxEditField, &box);
    return QFontMetrics(box.font()).horizontalAdvance(box.currentText()) <= field.width();
}

bool fits(const QAbstractButton& button) {
    return button.text().isEmpty()
           || (button.sizeHint().width() <= button.width()
               && button.sizeHint().height() <= button.height());
}

/// What the user cannot read to its end, in the window as it stands on the screen.
QStringList cutOffTexts(const QWidget& window) {
    QStringList texts;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const auto* label = qobject_cast<const QLabel*>(widget);
        const auto* box = qobject_cast<const QComboBox*>(widget);
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        const bool isShown = widget->isVisibleTo(&window);
        if (isShown && label != nullptr && !fits(*label)) {
            texts << label->text();
        } else if (isShown && box != nullptr && !fits(*box)) {
            texts << box->currentText();
        } else if (isShown && button != nullptr && !fits(*button)) {
            texts << button->text();
        }
        if (isShown && (label != nullptr || button != nullptr)
            && !widget->parentWidget()->rect().contains(widget->geometry())) {
            texts << QStringLiteral("outside its window: ") + widget->accessibleName();
        }
    }
    return texts;
}

/// Keeps the language for as long as it lives.
using Language = std::shared_ptr<void>;

template <typename Translator>
Language pseudoLanguage() {
    auto translator = std::make_shared<Translator>();
    QApplication::installTranslator(translator.get());
    return translator;
}

Language realLanguage(const char* name) {
    return std::make_shared<QtTranslations>(QStringList{QLatin1String(name)});
}

struct Case {
    const char* name;
    std::function<Language()> speak;
};

class WindowsTest : public testing::TestWithParam<Case> {};

TEST_P(WindowsTest, texts_fitInEveryWindow) {
    const Language language = GetParam().speak();
    int shown = 0;
    for (const Scene& scene : scenes()) {
        scene.play([&](QWidget& window) {
            ++shown;
            EXPECT_EQ(cutOffTexts(window).join(QLatin1Char('|')).toStdString(), "") << scene.name;
        });
    }
    EXPECT_GT(shown, 10);
}

INSTANTIATE_TEST_SUITE_P(Languages, WindowsTest,
                         testing::Values(Case{"English", [] { return Language(); }},
                                         Case{"German", [] { return realLanguage("de"); }},
                                         Case{"Portuguese", [] { return realLanguage("pt-BR"); }},
                                         Case{"RightToLeft", pseudoLanguage<RightToLeftTranslator>},
                                         Case{"DoubleLength",
                                              pseudoLanguage<DoubleLengthTranslator>}),
                         [](const auto& each) { return std::string(each.param.name); });

} // namespace
} // namespace dwellkey
