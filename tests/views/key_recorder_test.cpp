// SPDX-License-Identifier: MIT
#include "keycommands/recorder/key_recorder_view.h"

#include "keycommands/key_command_registry.h"
#include "offscreen.h"
#include "platform/fake/fake_platform.h"

#include <QAccessible>
#include <QDialog>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <QWindow>

#include <gmock/gmock.h>

#include <vector>

namespace dwellkey {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr FakeHotKeys::Combination commandQ{12, 0x100};
constexpr FakeHotKeys::Combination commandW{13, 0x100};

class KeyRecorderTest : public testing::Test {
protected:
    KeyRecorderTest() {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(view);
        column->addWidget(&field);
        window.show();
        window.activateWindow();
        turn();
    }
    static void turn() {
        constexpr int nestedLayouts = 5; // a new size takes a turn to reach the next one outside
        for (int i = 0; i < nestedLayouts; ++i) {
            QApplication::processEvents();
        }
    }

    /// As the display sends a key: to a window of the application, whichever has the focus.
    static bool send(QWidget& to, QEvent::Type type, Qt::Key key, Qt::KeyboardModifiers modifiers,
                     Key position) {
        QKeyEvent event(type, key, modifiers, static_cast<quint32>(rawValue(position)), 0, 0);
        event.setAccepted(type != QEvent::ShortcutOverride);
        QApplication::sendEvent(to.windowHandle(), &event);
        return event.isAccepted();
    }
    void type(Qt::Key key, Qt::KeyboardModifiers modifiers, Key position) {
        send(window, QEvent::KeyPress, key, modifiers, position);
        send(window, QEvent::KeyRelease, key, modifiers, position);
    }
    void typeSpace() { type(Qt::Key_Space, Qt::NoModifier, Key::space); }
    void typeTab() { type(Qt::Key_Tab, Qt::NoModifier, Key::tab); }

    [[nodiscard]] KeyRecording& recording() const { return control.recording(); }
    [[nodiscard]] bool isRecording() const {
        return recording().state() == RecordingState::recording;
    }
    [[nodiscard]] auto registered() const { return platform.hotKeys.registeredCombinations(); }
    [[nodiscard]] QStringList visibleCaptions() const {
        QStringList texts;
        for (const QLabel* label : view->findChildren<QLabel*>()) {
            if (label->isVisible()) {
                texts += label->text().remove(QChar(0x2066)).remove(QChar(0x2069));
            }
        }
        return texts;
    }
    static QImage picture(QWidget& widget) { return widget.grab().toImage(); }

    FakePlatform platform;
    KeyCommandRegistry registry{platform.platform()};
    KeyCommand quit{KeyCommand::Name("quitApplication"), Key::q, {Modifier::command}, registry};
    QWidget window;
    KeyRecorderView* view = new KeyRecorderView(quit, platform.platform());
    QLineEdit field;
    KeyRecorderSegmentedControl& control = view->recorder().segmentedControl();
    KeyRecorderSegment& shortcut = control.segment(RecorderSegment::shortcut);
    KeyRecorderSegment& button = control.segment(RecorderSegment::button);
};

TEST_F(KeyRecorderTest, segments_followTheCommand_andTheCommandFollowsThem) {
    EXPECT_EQ(shortcut.text(), QStringLiteral("Ctrl+Q"));
    const QImage whenSet = picture(button);
    shortcut.click();
    EXPECT_EQ(shortcut.text(), QStringLiteral("Type shortcut"));
    const QImage whileRecording = picture(button);
    type(Qt::Key_W, Qt::ControlModifier, Key::w);
    EXPECT_EQ(shortcut.text(), QStringLiteral("Ctrl+W"));
    EXPECT_THAT(registered(), ElementsAre(commandW));
    EXPECT_THAT(visibleCaptions(), IsEmpty());
    button.click();
    EXPECT_EQ(shortcut.text(), QStringLiteral("Record shortcut"));
    EXPECT_THAT(registered(), IsEmpty());
    const QImage whenCleared = picture(button);
    EXPECT_NE(whenSet, whileRecording);
    EXPECT_NE(whenSet, whenCleared);
    EXPECT_NE(whileRecording, whenCleared);
    quit.setKey(Key::f4); // from elsewhere
    quit.setModifiers({Modifier::option});
    quit.enable();
    EXPECT_EQ(shortcut.text(), QStringLiteral("Alt+F4"));
}

TEST_F(KeyRecorderTest, keyboardAlone_reachesBothSegments_andRecords) {
    view->setFocus();
    EXPECT_TRUE(shortcut.hasFocus());
    typeTab();
    EXPECT_TRUE(button.hasFocus());
    typeSpace();
    EXPECT_THAT(registered(), IsEmpty()) << "cleared";
    typeSpace();
    EXPECT_TRUE(isRecording());
    type(Qt::Key_Tab, Qt::ControlModifier, Key::tab);
    EXPECT_EQ(shortcut.text(), QStringLiteral("Ctrl+Tab"));
    EXPECT_TRUE(button.hasFocus());
}

TEST_F(KeyRecorderTest, whileRecording_everyKeyOfTheApplicationIsTheRecorders) {
    QLineEdit elsewhere;
    elsewhere.show();
    field.setFocus();
    shortcut.click();
    EXPECT_TRUE(send(window, QEvent::ShortcutOverride, Qt::Key_Q, Qt::AltModifier, Key::q))
        << "a mnemonic of the window would take it";
    type(Qt::Key_A, Qt::NoModifier, Key::a);
    EXPECT_TRUE(field.text().isEmpty());
    send(elsewhere, QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, Key::a);
    EXPECT_EQ(platform.beeper.beepCount, 2) << "each key is judged once";
    type(Qt::Key_Control, Qt::NoModifier, Key::isoSection);
    type(Qt::Key_AltGr, Qt::NoModifier, Key::isoSection);
    EXPECT_EQ(platform.beeper.beepCount, 2) << "modifiers alone are no keys";
    type(Qt::Key_X, Qt::MetaModifier | Qt::AltModifier | Qt::ShiftModifier, Key::x);
    EXPECT_EQ(shortcut.text(), QStringLiteral("Super+Alt+Shift+X"));
    platform.runLoop.advance(std::chrono::milliseconds(50));
    field.setFocus();
    QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
    QApplication::sendEvent(window.windowHandle(), &key);
    EXPECT_EQ(field.text(), QStringLiteral("a")) << "given back";
}

TEST_F(KeyRecorderTest, repeatThatTheToolkitMisses_isNoFurtherKey) {
    shortcut.click();
    const auto sendAt = [this](QEvent::Type type, quint64 time) {
        QKeyEvent event(type, Qt::Key_A, Qt::NoModifier, static_cast<quint32>(rawValue(Key::a)), 0,
                        0);
        event.setTimestamp(time);
        QApplication::sendEvent(window.windowHandle(), &event);
    };
    sendAt(QEvent::KeyPress, 1000);
    for (const quint64 time : {1500U, 1540U, 1580U}) {
        sendAt(QEvent::KeyRelease, time);
        sendAt(QEvent::KeyPress, time);
    }
    EXPECT_EQ(platform.beeper.beepCount, 1);
    sendAt(QEvent::KeyRelease, 1600);
    sendAt(QEvent::KeyPress, 1700);
    EXPECT_EQ(platform.beeper.beepCount, 2);
}

TEST_F(KeyRecorderTest, windowThatGoesAway_endsTheRecording) {
    shortcut.click();
    EXPECT_EQ(platform.keyCapture.window, window.winId());
    window.hide();
    EXPECT_FALSE(isRecording());
    EXPECT_THAT(registered(), ElementsAre(commandQ));
    window.show();
    shortcut.click();
    delete view;
    EXPECT_EQ(platform.keyCapture.window, std::nullopt);
    EXPECT_THAT(registered(), ElementsAre(commandQ));
}

TEST_F(KeyRecorderTest,
       userWhoTurnsToAnotherProgramOrADialog_endsTheRecording_ourOtherWindowsDoNot) {
    shortcut.click();
    QWidget other;
    other.show();
    other.activateWindow();
    turn();
    EXPECT_TRUE(isRecording());
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    EXPECT_FALSE(isRecording()) << "it could not be answered by keyboard";
    dialog.hide();
    shortcut.click();
    Q_EMIT qGuiApp->applicationStateChanged(Qt::ApplicationInactive);
    EXPECT_FALSE(isRecording());
    shortcut.click();
    // The toolkit alone may emit it; by its name anybody can.
    ASSERT_TRUE(QMetaObject::invokeMethod(qGuiApp, "aboutToQuit", Qt::DirectConnection));
    EXPECT_THAT(registered(), ElementsAre(commandQ));
}

TEST_F(KeyRecorderTest, takenCombination_isToldUnderTheRecorder_untilTheWindowFindsItFree) {
    platform.hotKeys.takeByOther(commandW);
    shortcut.click();
    type(Qt::Key_W, Qt::ControlModifier, Key::w);
    EXPECT_EQ(shortcut.text(), QStringLiteral("Record shortcut"));
    EXPECT_EQ(visibleCaptions(),
              QStringList(QStringLiteral("Ctrl+W: Another program has taken this shortcut.")));
    platform.hotKeys.giveBackByOther(commandW);
    QEvent activated(QEvent::WindowActivate);
    QApplication::sendEvent(&window, &activated);
    EXPECT_EQ(shortcut.text(), QStringLiteral("Ctrl+W"));
    EXPECT_THAT(visibleCaptions(), IsEmpty());
}

TEST_F(KeyRecorderTest, longTexts_widenTheRecorder) {
    EXPECT_GE(control.width(), 140);
    EXPECT_EQ(button.width(), button.height());
    for (const char* text : {"Record shortcut", "Type shortcut"}) {
        platform.localizer.translations[text] = std::string(text) + " " + text;
    }
    control.refresh();
    turn();
    const int wide = control.width();
    EXPECT_GT(shortcut.width(),
              shortcut.fontMetrics().horizontalAdvance(QStringLiteral("Record shortcut ")) * 2);
    shortcut.click();
    turn();
    EXPECT_EQ(control.width(), wide) << "the window would move about";
    view->recorder().setStringValue(QString(80, QLatin1Char('m')));
    turn();
    EXPECT_GT(shortcut.width(), shortcut.fontMetrics().horizontalAdvance(shortcut.text()));
}

TEST_F(KeyRecorderTest, textSetByTheOwner_replacesTheAutomaticOne) {
    view->recorder().setStringValue(QStringLiteral("Own"));
    shortcut.click();
    EXPECT_EQ(shortcut.text(), QStringLiteral("Own"));
    const QImage plain = picture(shortcut);
    view->recorder().setAttributedStringValue(QStringLiteral("<b>Own</b>"));
    EXPECT_NE(picture(shortcut), plain);
}

TEST_F(KeyRecorderTest, screenReader_hearsWhatEachSegmentIsForAndShows) {
    const auto spoken = [](QWidget& widget) {
        const auto* interface = QAccessible::queryAccessibleInterface(&widget);
        EXPECT_EQ(interface->role(), QAccessible::Button);
        return interface->text(QAccessible::Name);
    };
    EXPECT_EQ(spoken(shortcut), QStringLiteral("Ctrl+Q"));
    view->setAccessibleName(QStringLiteral("Quit App Shortcut:"));
    window.hide();
    window.show();
    EXPECT_EQ(spoken(shortcut), QStringLiteral("Quit App Shortcut: Ctrl+Q"));
    EXPECT_EQ(spoken(button), QStringLiteral("Quit App Shortcut: Clear shortcut"));
    shortcut.click();
    EXPECT_EQ(spoken(shortcut), QStringLiteral("Quit App Shortcut: Type shortcut"));
    EXPECT_EQ(spoken(button), QStringLiteral("Quit App Shortcut: Stop recording"));
}

TEST_F(KeyRecorderTest, bezelStyles_lookDifferent_andReachRecordersBelow) {
    std::vector<QImage> pictures;
    for (const BezelStyle style : allCases<BezelStyle>) {
        KeyRecorderBezelStyle(style).applyTo(window);
        turn();
        EXPECT_EQ(view->recorder().bezelStyle(), style);
        pictures.push_back(picture(*view));
        for (std::size_t i = 0; i + 1 < pictures.size(); ++i) {
            EXPECT_NE(pictures[i], pictures.back());
        }
    }
    KeyRecorderView later(quit, platform.platform(), &window);
    later.show();
    EXPECT_EQ(later.recorder().bezelStyle(), BezelStyle::square);
}

TEST_F(KeyRecorderTest, images_areDrawnInThePalettesColour) {
    const auto inkOf = [this] {
        return qGray(picture(button).pixel(button.rect().center() - QPoint(0, 4)));
    };
    QPalette palette;
    palette.setColor(QPalette::Button, Qt::black);
    palette.setColor(QPalette::ButtonText, Qt::white);
    window.setPalette(palette);
    EXPECT_GT(inkOf(), 200);
    palette.setColor(QPalette::Button, Qt::white);
    palette.setColor(QPalette::ButtonText, Qt::black);
    window.setPalette(palette);
    EXPECT_LT(inkOf(), 55);
}

} // namespace
} // namespace dwellkey
