// SPDX-License-Identifier: MIT
// Who is in front and who is asked to close, with windows and a window manager of the test's own.
#include "platform/x11/x11_workspace.h"

#include "platform/fake/fake_localizer.h"
#include "platform/fake/fake_run_loop.h"
#include "platform/x11/x11_modifier_map.h"
#include "x11_support/private_display.h"

#include <gmock/gmock.h>

#include <unistd.h>

namespace dwellkey {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using Windows = std::vector<xcb_window_t>;

struct Traits {
    std::string className = "Editor";
    std::string type = {}; // NOLINT: "DIALOG", "DESKTOP", ...; stated only when not empty
    bool acceptsDelete = true;
    xcb_window_t transientFor = XCB_WINDOW_NONE;
    bool exportsActions = false;
};

/// Owns the windows of the applications, and states what a window manager states.
class WindowedClient {
public:
    explicit WindowedClient(const std::string& display) : x_(display) {}
    ~WindowedClient() {
        for (const char* name : {"_NET_ACTIVE_WINDOW", "_NET_CLIENT_LIST", "_NET_SUPPORTED",
                                 "_NET_SUPPORTING_WM_CHECK"}) {
            set(x_.root(), name, {});
        }
        x_.synchronize();
    }
    WindowedClient(const WindowedClient&) = delete;
    WindowedClient& operator=(const WindowedClient&) = delete;

    xcb_window_t open(const Traits& traits = {}) {
        const xcb_window_t window = bareWindow();
        const std::string both = traits.className + '\0' + traits.className + '\0';
        xcb_change_property(x_.get(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS,
                            XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(both.size()),
                            both.data());
        if (!traits.type.empty()) {
            set(window, "_NET_WM_WINDOW_TYPE", {x_.atom("_NET_WM_WINDOW_TYPE_" + traits.type)});
        }
        if (traits.acceptsDelete) {
            set(window, "WM_PROTOCOLS", {x_.atom("WM_DELETE_WINDOW")});
        }
        if (traits.transientFor != XCB_WINDOW_NONE) {
            set(window, "WM_TRANSIENT_FOR", {traits.transientFor});
        }
        if (traits.exportsActions) {
            setText(window, "_GTK_UNIQUE_BUS_NAME", ":1.1");
            setText(window, "_GTK_APPLICATION_OBJECT_PATH", "/org/example");
        }
        set(window, "_NET_WM_PID", {1}); // not so
        managed_.push_back(window);
        set(x_.root(), "_NET_CLIENT_LIST", managed_);
        return window;
    }
    void close(xcb_window_t window) {
        std::erase(managed_, window);
        xcb_destroy_window(x_.get(), window);
        set(x_.root(), "_NET_CLIENT_LIST", managed_);
    }
    void activate(xcb_window_t window) { set(x_.root(), "_NET_ACTIVE_WINDOW", {window}); }

    void manage(const std::vector<std::string>& supported = {"_NET_ACTIVE_WINDOW"}) {
        check_ = bareWindow();
        set(check_, "_NET_SUPPORTING_WM_CHECK", {check_});
        std::vector<std::uint32_t> atoms;
        for (const std::string& name : supported) {
            atoms.push_back(x_.atom(name));
        }
        set(x_.root(), "_NET_SUPPORTED", atoms);
        set(x_.root(), "_NET_SUPPORTING_WM_CHECK", {check_});
    }
    [[nodiscard]] xcb_window_t windowManagersWindow() const { return check_; }
    [[nodiscard]] xcb_window_t root() const { return x_.root(); }
    void crashTheWindowManager() {
        xcb_destroy_window(x_.get(), check_);
        x_.synchronize();
    }

    /// The windows that were asked to close.
    Windows asked() {
        x_.synchronize();
        Windows windows;
        while (const e2e::Reply<xcb_generic_event_t> event{xcb_poll_for_event(x_.get())}) {
            const auto& message = reinterpret_cast<xcb_client_message_event_t&>(*event); // NOLINT
            if ((event->response_type & 0x7fU) == XCB_CLIENT_MESSAGE
                && message.data.data32[0] == x_.atom("WM_DELETE_WINDOW")) {
                windows.push_back(message.window);
            }
        }
        return windows;
    }

private:
    xcb_window_t bareWindow() {
        const xcb_window_t window = xcb_generate_id(x_.get());
        xcb_create_window(x_.get(), XCB_COPY_FROM_PARENT, window, x_.root(), 0, 0, 10, 10, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        return window;
    }
    void set(xcb_window_t window, const std::string& name,
             const std::vector<std::uint32_t>& items) {
        xcb_change_property(x_.get(), XCB_PROP_MODE_REPLACE, window, x_.atom(name),
                            XCB_ATOM_CARDINAL, 32, static_cast<std::uint32_t>(items.size()),
                            items.data());
        x_.synchronize();
    }
    void setText(xcb_window_t window, const std::string& name, const std::string& text) {
        xcb_change_property(x_.get(), XCB_PROP_MODE_REPLACE, window, x_.atom(name), XCB_ATOM_STRING,
                            8, static_cast<std::uint32_t>(text.size()), text.data());
    }

    e2e::XConnection x_;
    Windows managed_;
    xcb_window_t check_ = XCB_WINDOW_NONE;
};

/// Knows nothing of any process: windows are told apart by their class.
class NoProcesses final : public ProcessReader {
public:
    std::optional<std::string> executable(pid_t) const override { return {}; }
    std::vector<std::string> commandLine(pid_t) const override { return {}; }
    std::optional<std::string> environmentVariable(pid_t, std::string_view) const override {
        return {};
    }
    std::optional<std::string> flatpakInfo(pid_t) const override { return {}; }
    std::optional<std::string> controlGroups(pid_t) const override { return {}; }
};

class RecordedActions final : public ApplicationActions {
public:
    void activate(const ActionAddress& address, pid_t process, std::string_view action,
                  std::function<void()> fallback) override {
        requests.push_back(address.busName + " " + std::string(action));
        EXPECT_EQ(process, getpid());
        otherwise = std::move(fallback);
    }
    std::vector<std::string> requests;
    std::function<void()> otherwise;
};

class X11WorkspaceTest : public testing::Test {
protected:
    X11WorkspaceTest() { connection_->attach(loop_); }

    void settle() {
        queryPressedKeys(*connection_); // a round trip
        connection_->drain();
        loop_.runPosted();
    }
    void activate(xcb_window_t window) {
        client_.activate(window);
        settle();
    }
    Windows asked() {
        settle(); // the two connections are served in no order
        return client_.asked();
    }
    std::string inFront() {
        const auto application = workspace_.frontmostApplication();
        return application ? application->bundleIdentifier().value_or("nameless") : "nobody";
    }

    PrivateDisplay& display_ = PrivateDisplay::shared();
    e2e::TemporaryFolder folder_;
    FakeClock clock_;
    FakeRunLoop loop_{clock_};
    DesktopEntryIndex index_{loop_, {folder_.path()}, {}, {}};
    DefaultFileManager fileManager_{loop_, index_, {}, {}};
    NoProcesses processes_;
    ApplicationIdentifier identifier_{index_, fileManager_, processes_};
    RecordedActions actions_;
    FakeLocalizer localizer_;
    WindowedClient client_{display_.name()};
    std::unique_ptr<X11Connection> connection_ = PrivateDisplay::connect();
    X11Workspace workspace_{*connection_, identifier_, actions_, localizer_, {}};
    std::vector<std::string> activations_;
    Subscription activation_ = workspace_.didActivateApplication.subscribe(
        [this](const auto&) { activations_.push_back(inFront()); });
};

TEST_F(X11WorkspaceTest, frontmostApplication_followsTheActiveWindow) {
    const auto editor = client_.open({.className = "Editor"});
    const auto secondEditor = client_.open({.className = "Editor"});
    const auto player = client_.open({.className = "Player"});
    EXPECT_EQ(inFront(), "nobody");
    activate(editor);
    EXPECT_EQ(inFront(), "Editor");
    activate(secondEditor);
    activate(player);
    activate(XCB_WINDOW_NONE);
    EXPECT_THAT(activations_, ElementsAre("Editor", "Player", "nobody"));
}

TEST_F(X11WorkspaceTest, desktopAndDockWindows_areNobodys) {
    activate(client_.open());
    activate(client_.open({.className = "Files", .type = "DESKTOP"}));
    EXPECT_EQ(inFront(), "nobody");
    activate(client_.open({.className = "Panel", .type = "DOCK"}));
    EXPECT_EQ(inFront(), "nobody");
}

TEST_F(X11WorkspaceTest, windowsThatAreNoApplications_mayBeCalledActiveWithoutHarm) {
    client_.manage();
    settle();
    const auto editor = client_.open({.className = "Editor"});
    for (const auto window : {client_.root(), client_.windowManagersWindow()}) {
        activate(editor);
        activate(window);
        EXPECT_EQ(inFront(), "nobody");
    }
    activate(editor);
    EXPECT_EQ(inFront(), "Editor") << "our own subscription to the root window is lost";
    client_.crashTheWindowManager();
    settle();
    EXPECT_EQ(inFront(), "nobody") << "our own subscription to the manager's window is lost";
}

TEST_F(X11WorkspaceTest, confirming_needsNoEvent) {
    activate(client_.open({.className = "Editor"}));
    client_.activate(client_.open({.className = "Player"}));
    workspace_.confirmFrontmostApplication();
    EXPECT_EQ(inFront(), "Player");
    EXPECT_THAT(activations_, ElementsAre("Editor", "Player"));
}

TEST_F(X11WorkspaceTest, application_isTerminatedWhenNoWindowOfItIsLeft) {
    client_.open({.type = "DESKTOP"});
    const auto other = client_.open();
    const auto front = client_.open();
    activate(front);
    const auto application = workspace_.frontmostApplication();
    EXPECT_FALSE(application->isTerminated());
    client_.close(front);
    EXPECT_FALSE(application->isTerminated()) << "one is left";
    client_.close(other);
    EXPECT_TRUE(application->isTerminated());
}

TEST_F(X11WorkspaceTest, process_isTheServersWordAndNotTheClients) {
    EXPECT_EQ(X11Windows(*connection_).describe(client_.open()).process, getpid());
}

TEST_F(X11WorkspaceTest, applicationThatDied_isNotInFrontAnyMore) {
    const auto window = client_.open();
    activate(window);
    client_.close(window); // the window manager goes on naming it
    settle();
    EXPECT_EQ(inFront(), "nobody");
}

TEST_F(X11WorkspaceTest, activeWindowThatIsGoneAlready_isNobodys) {
    const auto window = client_.open();
    client_.activate(window);
    client_.close(window);
    settle();
    EXPECT_EQ(inFront(), "nobody");
}

TEST_F(X11WorkspaceTest, runningApplications_areListedOnceInTheOrderOfTheirWindows) {
    client_.open({.className = "Editor"});
    client_.open({.className = "Player"});
    client_.open({.className = "Editor"});
    EXPECT_EQ(workspace_.runningApplications("Editor").size(), 1U);
    EXPECT_EQ(workspace_.runningApplications("Player").size(), 1U);
    EXPECT_THAT(workspace_.runningApplications("Browser"), IsEmpty());
}

TEST_F(X11WorkspaceTest, closeFrontWindow_asksThatWindowOnly) {
    client_.open();
    const auto front = client_.open();
    activate(front);
    EXPECT_EQ(workspace_.closeFrontWindow("Editor"), std::nullopt);
    EXPECT_THAT(asked(), ElementsAre(front));
}

TEST_F(X11WorkspaceTest, closeFrontWindow_tellsWhyItCannot) {
    EXPECT_NE(workspace_.closeFrontWindow("Editor"), std::nullopt) << "nobody is in front";
    activate(client_.open());
    EXPECT_NE(workspace_.closeFrontWindow("Player"), std::nullopt) << "not in front";
    activate(client_.open({.className = "Old", .acceptsDelete = false}));
    EXPECT_NE(workspace_.closeFrontWindow("Old"), std::nullopt) << "would kill the client";
    EXPECT_THAT(asked(), IsEmpty());
}

TEST_F(X11WorkspaceTest, terminate_asksEachMainWindowOnceAndNoDialog) {
    const auto one = client_.open();
    client_.open({.acceptsDelete = false});
    client_.open({.type = "DIALOG"});
    client_.open({.transientFor = one});
    client_.open({.type = "DESKTOP"});
    const auto other = client_.open({.type = "NORMAL"});
    activate(one);
    workspace_.frontmostApplication()->terminate();
    EXPECT_THAT(asked(), UnorderedElementsAre(one, other));
}

TEST_F(X11WorkspaceTest, terminate_ofAProgramThatIsOnlyADialog_asksThat) {
    const auto dialog = client_.open({.type = "DIALOG"});
    activate(dialog);
    workspace_.frontmostApplication()->terminate();
    EXPECT_THAT(asked(), ElementsAre(dialog));
}

TEST_F(X11WorkspaceTest, terminate_prefersTheQuitActionAndClosesWindowsWhereThereIsNone) {
    const auto window = client_.open({.exportsActions = true});
    activate(window);
    workspace_.frontmostApplication()->terminate();
    EXPECT_THAT(actions_.requests, ElementsAre(":1.1 quit"));
    EXPECT_THAT(asked(), IsEmpty());
    actions_.otherwise();
    EXPECT_THAT(asked(), ElementsAre(window));
}

TEST_F(X11WorkspaceTest, trust_comesAndGoesWithTheWindowManager) {
    ASSERT_TRUE(workspace_.lack());
    EXPECT_THAT(workspace_.lack()->reason, HasSubstr("No window manager"));
    client_.manage({"_NET_CLOSE_WINDOW"});
    ASSERT_TRUE(workspace_.lack());
    EXPECT_THAT(workspace_.lack()->reason, HasSubstr("does not tell"));
    client_.crashTheWindowManager();
    settle();
    activations_.clear();
    client_.manage(); // closing a window takes no more than that
    settle();
    EXPECT_TRUE(workspace_.isProcessTrusted());
    EXPECT_THAT(activations_, ElementsAre("nobody")) << "nobody was told to judge anew";
    client_.crashTheWindowManager(); // its properties stay
    EXPECT_FALSE(workspace_.isProcessTrusted());
}

} // namespace
} // namespace dwellkey
