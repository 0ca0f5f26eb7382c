// SPDX-License-Identifier: MIT
#include "platform/x11/x11_windows.h"

#include <algorithm>
#include <xcb/res.h>

namespace dwellkey {
namespace {

/// XRes can tell the process of a client since 1.2.
bool hasXResClientIds(xcb_connection_t* connection) {
    const auto* extension = xcb_get_extension_data(connection, &xcb_res_id);
    if (extension == nullptr || extension->present == 0) {
        return false;
    }
    const XcbPtr<xcb_res_query_version_reply_t> version(
        xcb_res_query_version_reply(connection, xcb_res_query_version(connection, 1, 2), nullptr));
    return version && (version->server_major > 1 || version->server_minor >= 2);
}

struct Questions {
    xcb_window_t window;
    xcb_get_property_cookie_t wmClass, type, state, protocols, transientFor, gtkId, gtkBus, gtkPath;
    xcb_res_query_client_ids_cookie_t process;
};

Questions ask(const X11Connection& connection, xcb_window_t window, bool askProcess) {
    const auto& atoms = connection.atoms();
    const auto property = [&](xcb_atom_t atom) {
        return requestProperty(connection, window, atom);
    };
    Questions questions{window,
                        property(XCB_ATOM_WM_CLASS),
                        property(atoms.netWmWindowType),
                        property(atoms.netWmState),
                        property(atoms.wmProtocols),
                        property(XCB_ATOM_WM_TRANSIENT_FOR),
                        property(atoms.gtkApplicationId),
                        property(atoms.gtkUniqueBusName),
                        property(atoms.gtkApplicationObjectPath),
                        {}};
    if (askProcess) {
        const xcb_res_client_id_spec_t whom{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
        questions.process = xcb_res_query_client_ids(connection.raw(), 1, &whom);
    }
    return questions;
}

std::optional<pid_t> processFrom(const xcb_res_query_client_ids_reply_t* reply) {
    if (reply == nullptr) {
        return std::nullopt;
    }
    for (auto at = xcb_res_query_client_ids_ids_iterator(reply); at.rem > 0;
         xcb_res_client_id_value_next(&at)) {
        if ((at.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) != 0
            && xcb_res_client_id_value_value_length(at.data) > 0) {
            return static_cast<pid_t>(*xcb_res_client_id_value_value(at.data));
        }
    }
    return std::nullopt;
}

bool contains(const std::vector<std::uint32_t>& items, std::uint32_t wanted) {
    return std::ranges::find(items, wanted) != items.end();
}

void readClass(X11Window& window, const std::string& text) {
    const auto end = text.find('\0');
    window.classInstance = text.substr(0, end);
    if (end != std::string::npos) {
        window.className = text.substr(end + 1, text.find('\0', end + 1) - end - 1);
    }
}

X11Window answer(X11Connection& connection, const Questions& questions, bool askedProcess) {
    const auto& atoms = connection.atoms();
    const auto items = [&](xcb_get_property_cookie_t cookie) {
        return propertyItems(awaitProperty(connection, cookie).get());
    };
    const auto text = [&](xcb_get_property_cookie_t cookie) {
        return propertyText(awaitProperty(connection, cookie).get());
    };
    X11Window window;
    window.id = questions.window;
    const auto wmClass = awaitProperty(connection, questions.wmClass);
    window.exists = wmClass != nullptr;
    readClass(window, propertyText(wmClass.get()));
    const auto types = items(questions.type);
    window.isDesktop = contains(types, atoms.netWmWindowTypeDesktop);
    window.isDock = contains(types, atoms.netWmWindowTypeDock);
    window.isModal = contains(items(questions.state), atoms.netWmStateModal);
    window.acceptsDelete = contains(items(questions.protocols), atoms.wmDeleteWindow);
    window.isTransient = !items(questions.transientFor).empty();
    window.isNormal =
        types.empty() ? !window.isTransient : contains(types, atoms.netWmWindowTypeNormal);
    if (auto id = text(questions.gtkId); !id.empty()) {
        window.gtkApplicationId = std::move(id);
    }
    ActionAddress address{text(questions.gtkBus), text(questions.gtkPath)};
    if (!address.busName.empty() && !address.objectPath.empty()) {
        window.actions = std::move(address);
    }
    if (askedProcess) {
        const XcbPtr<xcb_res_query_client_ids_reply_t> reply(
            xcb_res_query_client_ids_reply(connection.raw(), questions.process, nullptr));
        window.process = processFrom(reply.get());
    }
    return window;
}

} // namespace

X11Windows::X11Windows(X11Connection& connection)
    : connection_(connection), hasXRes_(hasXResClientIds(connection.raw())) {}

std::vector<X11Window> X11Windows::describe(const std::vector<xcb_window_t>& windows) const {
    std::vector<Questions> questions;
    questions.reserve(windows.size());
    for (const xcb_window_t window : windows) {
        questions.push_back(ask(connection_, window, hasXRes_));
    }
    std::vector<X11Window> described;
    described.reserve(windows.size());
    for (const Questions& asked : questions) {
        described.push_back(answer(connection_, asked, hasXRes_));
    }
    return described;
}

X11Window X11Windows::describe(xcb_window_t window) const {
    return describe(std::vector{window}).front();
}

xcb_window_t X11Windows::activeWindow() const {
    const auto items = propertyItems(
        awaitProperty(connection_, requestProperty(connection_, connection_.root(),
                                                   connection_.atoms().netActiveWindow))
            .get());
    return items.empty() ? xcb_window_t{XCB_WINDOW_NONE} : items.front();
}

std::vector<xcb_window_t> X11Windows::clientWindows() const {
    return propertyItems(
        awaitProperty(connection_, requestProperty(connection_, connection_.root(),
                                                   connection_.atoms().netClientList))
            .get());
}

xcb_window_t X11Windows::windowManagerWindow() const {
    const auto items = propertyItems(
        awaitProperty(connection_, requestProperty(connection_, connection_.root(),
                                                   connection_.atoms().netSupportingWmCheck))
            .get());
    return items.empty() ? xcb_window_t{XCB_WINDOW_NONE} : items.front();
}

WindowManagement X11Windows::windowManagement() const {
    const auto& atoms = connection_.atoms();
    const auto supportedCookie =
        requestProperty(connection_, connection_.root(), atoms.netSupported);
    const auto checkCookie =
        requestProperty(connection_, connection_.root(), atoms.netSupportingWmCheck);
    const auto supported = propertyItems(awaitProperty(connection_, supportedCookie).get());
    const auto check = propertyItems(awaitProperty(connection_, checkCookie).get());
    if (check.empty()) {
        return WindowManagement::none;
    }
    // A window manager that died leaves the root's properties behind, but not its own window.
    const auto own =
        propertyItems(awaitProperty(connection_, requestProperty(connection_, check.front(),
                                                                 atoms.netSupportingWmCheck))
                          .get());
    if (own != check) {
        return WindowManagement::none;
    }
    return contains(supported, atoms.netActiveWindow) ? WindowManagement::complete
                                                      : WindowManagement::withoutActiveWindow;
}

bool X11Windows::haveSameClient(xcb_window_t one, xcb_window_t other) const {
    const auto client = ~xcb_get_setup(connection_.raw())->resource_id_mask;
    return (one & client) == (other & client);
}

void X11Windows::requestClose(xcb_window_t window) const {
    sendClientMessage(window, window, connection_.atoms().wmProtocols,
                      connection_.atoms().wmDeleteWindow, XCB_CURRENT_TIME,
                      XCB_EVENT_MASK_NO_EVENT);
}

void X11Windows::requestActivation(xcb_window_t window) const {
    constexpr std::uint32_t fromPager = 2;
    sendClientMessage(connection_.root(), window, connection_.atoms().netActiveWindow, fromPager,
                      XCB_CURRENT_TIME,
                      XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
}

void X11Windows::sendClientMessage(xcb_window_t to, xcb_window_t about, xcb_atom_t type,
                                   std::uint32_t first, std::uint32_t second,
                                   std::uint32_t mask) const {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = about;
    message.type = type;
    message.data.data32[0] = first;
    message.data.data32[1] = second;
    xcb_send_event(connection_.raw(), 0, to, mask,
                   reinterpret_cast<const char*>(&message)); // NOLINT: xcb's way
    connection_.flush();
}

} // namespace dwellkey
