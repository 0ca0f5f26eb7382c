// SPDX-License-Identifier: MIT
#include "binder/windows/panel_window.h"

#include "binder/windows/interface_loader.h"
#include "binder/windows/width_constraint.h"
#include "platform/qt/qt_panel_window.h"

#include <QApplication>
#include <QCoreApplication>
#include <QLabel>
#include <QVBoxLayout>
#include <array>
#include <optional>

namespace dwellkey {
namespace {

// What the handler says, for the translators' tools to find.
[[maybe_unused]] constexpr std::array translatableTitles{
    QT_TRANSLATE_NOOP("TimerWindowController", "Hold to Quit App"),
    QT_TRANSLATE_NOOP("TimerWindowController", "Hold to Close Window"),
};

/// The panel around the file's outermost widget, which gives it its size.
class Panel final : public QtPanelWindow {
public:
    Panel(PanelSupport& support, double cornerRadius, std::unique_ptr<QWidget> content)
        : QtPanelWindow(support, cornerRadius), content_(content.release()),
          designedSize_(content_->size()) {
        setWindowTitle(content_->windowTitle());
        auto* frame = new QVBoxLayout(this);
        frame->setContentsMargins(0, 0, 0, 0);
        frame->addWidget(content_);
    }

    /// Of its designed size; a long title (another language, a wide font) makes it wider.
    void fitToContent() override { setFixedSize(content_->sizeHint().expandedTo(designedSize_)); }

private:
    QWidget* content_;
    QSize designedSize_;
};

class Label final : public TextField {
public:
    explicit Label(QLabel& label) : label_(label) {}
    void setStringValue(const std::string& text) override {
        label_.setText(QCoreApplication::translate("TimerWindowController", text.c_str()));
        if (auto* panel = dynamic_cast<Panel*>(label_.window())) {
            const QSize before = panel->size();
            panel->fitToContent();
            if (panel->size() != before) {
                panel->centre();
            }
        }
    }

private:
    QLabel& label_;
};

class Track final : public View {
public:
    explicit Track(const QWidget& widget) : widget_(widget) {}
    [[nodiscard]] double boundsWidth() const override { return widget_.width(); }

private:
    const QWidget& widget_;
};

class FillWidth final : public LayoutConstraint {
public:
    explicit FillWidth(WidthConstraint& constraint) : constraint_(constraint) {}
    void setConstant(double constant) override { constraint_.setConstant(constant); }

private:
    WidthConstraint& constraint_;
};

/// In the part of `Adapter`, the object of that name and class, if the file has it.
template <typename Adapter, typename Object>
void adapt(std::optional<Adapter>& adapter, const QWidget& root, const char* name) {
    if (auto* object = root.findChild<Object*>(QString::fromLatin1(name))) {
        adapter.emplace(*object);
    }
}

class PanelWindow final : public TimerWindow {
public:
    PanelWindow(std::unique_ptr<QWidget> content, PanelSupport& support)
        : support_(support), content_(std::move(content)) {
        adapt<Label, QLabel>(titleLabel_, *content_, "titleLabel");
        adapt<Track, QWidget>(progressSpacer_, *content_, "progressSpacer");
        adapt<FillWidth, WidthConstraint>(progressConstraint_, *content_, "progressConstraint");
    }

    TextField* titleLabel() override { return titleLabel_ ? &*titleLabel_ : nullptr; }
    View* progressSpacer() override { return progressSpacer_ ? &*progressSpacer_ : nullptr; }
    LayoutConstraint* progressConstraint() override {
        return progressConstraint_ ? &*progressConstraint_ : nullptr;
    }

    /// A panel is always above all others, and whatever is behind it shines through where that can
    /// be had.
    void setAppearance(const WindowAppearance& appearance) override {
        panel_ = std::make_unique<Panel>(support_, appearance.cornerRadius, std::move(content_));
    }
    void show() override {
        panel_->followCompositor();
        panel_->show();
        panel_->raise();
    }
    void center() override { panel_->centre(); }
    void close() override { panel_->hide(); }
    [[nodiscard]] bool isTrackingEvents() const override {
        return QApplication::activePopupWidget() != nullptr
               || QApplication::activeModalWidget() != nullptr;
    }

private:
    PanelSupport& support_;
    std::unique_ptr<QWidget> content_; // until the panel has it
    std::unique_ptr<Panel> panel_;
    std::optional<Label> titleLabel_;
    std::optional<Track> progressSpacer_;
    std::optional<FillWidth> progressConstraint_;
};

} // namespace

std::unique_ptr<TimerWindow> PanelInterfaceFiles::loadTimerWindow(std::string_view windowNibName) {
    InterfaceLoader* loader = InterfaceLoader::shared();
    auto content = loader == nullptr ? nullptr : loader->load(std::string(windowNibName));
    return content == nullptr ? nullptr
                              : std::make_unique<PanelWindow>(std::move(content), support_);
}

} // namespace dwellkey
