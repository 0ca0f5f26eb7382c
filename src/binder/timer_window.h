// SPDX-License-Identifier: MIT
// What the hold panel's controller uses of its window, without the toolkit. std only.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace dwellkey {

class TextField {
public:
    TextField() = default;
    TextField(const TextField&) = delete;
    TextField& operator=(const TextField&) = delete;
    virtual ~TextField() = default;

    /// `text` is a source text; the field shows it in the user's language.
    virtual void setStringValue(const std::string& text) = 0;
};

class View {
public:
    View() = default;
    View(const View&) = delete;
    View& operator=(const View&) = delete;
    virtual ~View() = default;

    [[nodiscard]] virtual double boundsWidth() const = 0; // points
};

class LayoutConstraint {
public:
    LayoutConstraint() = default;
    LayoutConstraint(const LayoutConstraint&) = delete;
    LayoutConstraint& operator=(const LayoutConstraint&) = delete;
    virtual ~LayoutConstraint() = default;

    /// In points. Any value is kept; what cannot be drawn (negative, not a number) is drawn as 0.
    virtual void setConstant(double constant) = 0;
};

inline constexpr int floatingWindowLevel = 3; // above normal windows

struct WindowAppearance {
    int level = 0;
    bool isOpaque = true;
    bool hasClearBackground = false;
    double cornerRadius = 0.0; // of the content, in points
    bool operator==(const WindowAppearance&) const = default;
};

/// The window of the interface file "TimerWindowController". It never takes the keyboard focus.
class TimerWindow {
public:
    TimerWindow() = default;
    TimerWindow(const TimerWindow&) = delete;
    TimerWindow& operator=(const TimerWindow&) = delete;
    virtual ~TimerWindow() = default;

    /// The named objects of the file; null where it has none. The window's for as long as it lives.
    [[nodiscard]] virtual TextField* titleLabel() = 0;
    [[nodiscard]] virtual View* progressSpacer() = 0;
    [[nodiscard]] virtual LayoutConstraint* progressConstraint() = 0;

    virtual void setAppearance(const WindowAppearance& appearance) = 0;
    virtual void show() = 0;
    virtual void center() = 0; // on its screen
    virtual void close() = 0;  // hides it

    /// Whether a menu or a modal loop of this program is open.
    [[nodiscard]] virtual bool isTrackingEvents() const = 0;
};

/// Makes windows from interface files.
class InterfaceFiles {
public:
    InterfaceFiles() = default;
    InterfaceFiles(const InterfaceFiles&) = delete;
    InterfaceFiles& operator=(const InterfaceFiles&) = delete;
    virtual ~InterfaceFiles() = default;

    /// The window of the file of that name; null, and a line in the log, when it cannot be loaded.
    virtual std::unique_ptr<TimerWindow> loadTimerWindow(std::string_view windowNibName) = 0;

    /// The process's own; it must have been installed.
    static InterfaceFiles& shared();

    /// Called once, by the composition root. The files stay the caller's; null takes them out.
    static void install(InterfaceFiles* files);
};

} // namespace dwellkey
