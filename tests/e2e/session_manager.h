// SPDX-License-Identifier: MIT
// A session manager with one client, speaking the protocol that the desktops' ones speak.
#pragma once

#include <X11/SM/SMlib.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dwellkey::e2e {

/// Works only inside its own `await...`, which throw when the client does not do its part in time.
class SessionManager {
public:
    SessionManager();
    SessionManager(const SessionManager&) = delete;
    SessionManager& operator=(const SessionManager&) = delete;
    ~SessionManager();

    /// For SESSION_MANAGER in the client's environment.
    [[nodiscard]] const std::string& address() const { return address_; }

    /// Until the client takes part in the session.
    void awaitClient();

    /// The end of a session: the client saves and says so; then it is told to die, and hangs up.
    void endSession();

    /// What the client asked to be done with it at the next login (SmRestartNever ...).
    [[nodiscard]] std::optional<int> restartHint() const { return restartHint_; }

private:
    static Status letIn(SmsConn connection, SmPointer self, unsigned long* mask,
                        SmsCallbacks* callbacks, char** reasonOfRefusal);
    static Status registerClient(SmsConn connection, SmPointer self, char* previousId);
    static void setProperties(SmsConn connection, SmPointer self, int count, SmProp** properties);
    void work();
    template <typename Reached>
    void workUntil(std::string_view what, Reached reached);

    int listenerCount_ = 0;
    IceListenObj* listeners_ = nullptr;
    std::string address_;
    IceConn wire_ = nullptr;
    SmsConn client_ = nullptr;
    int saved_ = 0;
    bool hasHungUp_ = false;
    std::optional<int> restartHint_;
};

} // namespace dwellkey::e2e
