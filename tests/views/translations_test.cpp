// SPDX-License-Identifier: MIT
#include "offscreen.h"
#include "platform/qt/qt_localizer.h"
#include "platform/qt/qt_translations.h"

#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>

#include <gmock/gmock.h>

namespace dwellkey {
namespace {

std::string quitTitle() {
    return QtLocalizer().localized("TimerView", "Hold to Quit App");
}

std::string quitTitleFor(const QStringList& languages) {
    const QtTranslations translations(languages, {QStringLiteral(DWELLKEY_TRANSLATIONS)});
    return quitTitle();
}

TEST(TranslationsTest, firstLanguageThatWeSpeak_isTaken_untilTheTranslationsEnd) {
    EXPECT_EQ(quitTitleFor({QStringLiteral("de-AT"), QStringLiteral("de")}),
              "Halten, um die App zu beenden");
    EXPECT_EQ(
        quitTitleFor({QStringLiteral("fr-FR"), QStringLiteral("fr"), QStringLiteral("pt-BR")}),
        "Segure para encerrar o aplicativo");
    EXPECT_EQ(quitTitle(), "Hold to Quit App");
}

TEST(TranslationsTest, english_isNotPassedOverForALanguageWithAFile) {
    EXPECT_EQ(quitTitleFor({QStringLiteral("en-GB"), QStringLiteral("de")}), "Hold to Quit App");
}

TEST(TranslationsTest, english_isInTheWordsOfThisDesktop_andForWhoeverHasNoFile) {
    for (const char* language : {"en-GB", "C", "fr-FR"}) {
        const QtTranslations translations({QLatin1String(language), QStringLiteral("C")},
                                          {QStringLiteral(DWELLKEY_TRANSLATIONS)});
        EXPECT_EQ(QtLocalizer().localized("dwellkey::PreferencesView", "Show menu bar icon"),
                  "Show icon in the tray")
            << language;
    }
}

TEST(TranslationsTest, toolkit_speaksTheSameLanguage) {
    const QtTranslations translations({QStringLiteral("de")},
                                      {QStringLiteral(DWELLKEY_TRANSLATIONS)});
    QMessageBox box;
    EXPECT_EQ(box.addButton(QMessageBox::Cancel)->text(), QStringLiteral("Abbrechen"));
}

/// Texts with the same places for arguments; otherwise a name would be lost.
class TranslationFileTest : public testing::TestWithParam<const char*> {
protected:
    static QStringList places(const QString& text) {
        static const QRegularExpression place(QStringLiteral("%\\d"));
        QStringList found;
        for (auto match = place.globalMatch(text); match.hasNext();) {
            found << match.next().captured();
        }
        found.removeDuplicates();
        found.sort();
        return found;
    }
    static QString contentOf(const char* language) {
        QFile file(QStringLiteral(DWELLKEY_SOURCE_TRANSLATIONS "/dwellkey_%1.ts")
                       .arg(QLatin1String(language)));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }
};

TEST_P(TranslationFileTest, everyTranslation_keepsTheArguments) {
    static const QRegularExpression message(
        QStringLiteral("<source>([^<]*)</source>.*?<translation[^>]*>([^<]*)</translation>"),
        QRegularExpression::DotMatchesEverythingOption);
    const QString content = contentOf(GetParam());
    int count = 0;
    for (auto match = message.globalMatch(content); match.hasNext(); ++count) {
        const auto text = match.next();
        EXPECT_EQ(places(text.captured(1)), places(text.captured(2)))
            << text.captured(1).toStdString();
    }
    EXPECT_GT(count, 50);
}

INSTANTIATE_TEST_SUITE_P(Languages, TranslationFileTest, testing::Values("de", "pt_BR"));

} // namespace
} // namespace dwellkey
