// SPDX-License-Identifier: MIT
#include "session_manager.h"

#include "harness/await.h"
#include "harness/failure.h"

#include <X11/ICE/ICElib.h>
#include <X11/ICE/ICEutil.h>

#include <array>
#include <cstdlib>
#include <poll.h>

namespace dwellkey::e2e {

namespace {

bool isReadable(int descriptor) {
    pollfd input{descriptor, POLLIN, 0};
    return ::poll(&input, 1, 0) == 1;
}

/// Instead of keys in a file of the user: only the test's own program knows the address.
Bool letEverybodyIn(char* /*host*/) {
    return True;
}

/// Nothing to ask, nothing to answer: the client of these tests neither interacts nor asks.
void setQuietCallbacks(SmsCallbacks& callbacks) {
    callbacks.interact_request.callback = [](SmsConn, SmPointer, int) {};
    callbacks.interact_done.callback = [](SmsConn, SmPointer, Bool) {};
    callbacks.save_yourself_request.callback = [](SmsConn, SmPointer, int, Bool, int, Bool, Bool) {
    };
    callbacks.save_yourself_phase2_request.callback = [](SmsConn connection, SmPointer) {
        SmsSaveYourselfPhase2(connection);
    };
    callbacks.close_connection.callback = [](SmsConn, SmPointer, int count, char** reasons) {
        SmFreeReasons(count, reasons);
    };
    callbacks.delete_properties.callback = [](SmsConn, SmPointer, int, char**) {};
    callbacks.get_properties.callback = [](SmsConn connection, SmPointer) {
        SmsReturnProperties(connection, 0, nullptr);
    };
}

} // namespace

SessionManager::SessionManager() {
    std::array<char, 256> error{};
    const auto size = static_cast<int>(error.size());
    IceSetIOErrorHandler([](IceConn) {}); // the library would end the process
    if (SmsInitialize("test", "1", letIn, this, letEverybodyIn, size, error.data()) == 0
        || IceListenForConnections(&listenerCount_, &listeners_, size, error.data()) == 0) {
        throw Failure(std::string("no session manager: ") + error.data());
    }
    for (int i = 0; i < listenerCount_; ++i) {
        IceSetHostBasedAuthProc(listeners_[i], letEverybodyIn);
    }
    char* list = IceComposeNetworkIdList(listenerCount_, listeners_);
    address_ = list;
    std::free(list); // NOLINT: the library hands out malloc'd memory
}

SessionManager::~SessionManager() {
    if (client_ != nullptr) {
        SmsCleanUp(client_);
    }
    if (wire_ != nullptr) {
        IceSetShutdownNegotiation(wire_, False);
        IceCloseConnection(wire_);
    }
    IceFreeListenObjs(listenerCount_, listeners_);
}

void SessionManager::awaitClient() {
    workUntil("a client of the session", [this] { return client_ != nullptr && saved_ > 0; });
}

void SessionManager::endSession() {
    const int before = saved_;
    SmsSaveYourself(client_, SmSaveBoth, True, SmInteractStyleAny, False);
    workUntil("the client to have saved", [&] { return saved_ > before || hasHungUp_; });
    SmsDie(client_);
    workUntil("the client to leave the session", [this] { return hasHungUp_; });
}

Status SessionManager::letIn(SmsConn connection, SmPointer self, unsigned long* mask,
                             SmsCallbacks* callbacks, char** /*reasonOfRefusal*/) {
    static_cast<SessionManager*>(self)->client_ = connection;
    setQuietCallbacks(*callbacks);
    callbacks->register_client.callback = registerClient;
    callbacks->set_properties.callback = setProperties;
    callbacks->save_yourself_done.callback = [](SmsConn client, SmPointer manager, Bool) {
        ++static_cast<SessionManager*>(manager)->saved_;
        SmsSaveComplete(client);
    };
    for (SmPointer* manager :
         {&callbacks->register_client.manager_data, &callbacks->set_properties.manager_data,
          &callbacks->save_yourself_done.manager_data}) {
        *manager = self;
    }
    *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask
            | SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask
            | SmsSaveYourselfDoneProcMask | SmsCloseConnectionProcMask | SmsSetPropertiesProcMask
            | SmsDeletePropertiesProcMask | SmsGetPropertiesProcMask;
    return True;
}

Status SessionManager::registerClient(SmsConn connection, SmPointer /*self*/, char* previousId) {
    if (previousId != nullptr) {
        std::free(previousId); // NOLINT: the library hands out malloc'd memory
        return False;          // of a session that is not ours
    }
    char* id = SmsGenerateClientID(connection);
    SmsRegisterClientReply(connection, id);
    std::free(id); // NOLINT: the library hands out malloc'd memory
    SmsSaveYourself(connection, SmSaveLocal, False, SmInteractStyleNone, False); // as it must be
    return True;
}

void SessionManager::setProperties(SmsConn /*connection*/, SmPointer self, int count,
                                   SmProp** properties) {
    for (int i = 0; i < count; ++i) {
        if (std::string_view(properties[i]->name) == SmRestartStyleHint) {
            static_cast<SessionManager*>(self)->restartHint_ =
                *static_cast<const char*>(properties[i]->vals[0].value);
        }
        SmFreeProperty(properties[i]);
    }
    std::free(properties); // NOLINT: the library hands out malloc'd memory
}

void SessionManager::work() {
    for (int i = 0; i < listenerCount_ && wire_ == nullptr; ++i) {
        if (isReadable(IceGetListenConnectionNumber(listeners_[i]))) {
            IceAcceptStatus status{};
            wire_ = IceAcceptConnection(listeners_[i], &status);
        }
    }
    while (wire_ != nullptr && !hasHungUp_ && isReadable(IceConnectionNumber(wire_))) {
        hasHungUp_ = IceProcessMessages(wire_, nullptr, nullptr) != IceProcessMessagesSuccess;
    }
}

template <typename Reached>
void SessionManager::workUntil(std::string_view what, Reached reached) {
    await(what, [&] {
        work();
        return reached();
    });
}

} // namespace dwellkey::e2e
