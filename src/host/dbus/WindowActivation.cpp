// Activation on X11 and Wayland. Qt's own request has the time of the last event that it has seen,
// which is before the click in the file manager, and some window managers refuse that.
#include "host/dbus/WindowActivation.h"

#include "host/dbus/StartupId.h"

#include <QGuiApplication>
#include <QWidget>

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

namespace velorin::host {

namespace {

constexpr std::uint32_t fromApplication = 1; ///< the source of a request

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};

/// The first screen of a connection; programs of one window system have no other.
class X11Screen {
public:
    explicit X11Screen(xcb_connection_t* connection) : connection_(connection) {}

    void requestActivation(xcb_window_t window, std::uint32_t time) const {
        xcb_client_message_event_t event = messageTo(window, "_NET_ACTIVE_WINDOW", 32);
        event.data.data32[0] = fromApplication;
        event.data.data32[1] = time;
        send(event, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT);
        xcb_flush(connection_);
    }

    // In pieces of 20 bytes; a zero byte ends the text.
    void endStartup(xcb_window_t window, std::string_view startupId) const {
        std::string text = startupEndMessage(startupId);
        text += '\0';
        constexpr std::size_t pieceBytes = 20;
        for (std::size_t at = 0; at < text.size(); at += pieceBytes) {
            const char* const type = at == 0 ? "_NET_STARTUP_INFO_BEGIN" : "_NET_STARTUP_INFO";
            xcb_client_message_event_t event = messageTo(window, type, 8);
            std::memcpy(event.data.data8, text.data() + at, std::min(pieceBytes, text.size() - at));
            send(event, XCB_EVENT_MASK_PROPERTY_CHANGE);
        }
        xcb_flush(connection_);
    }

private:
    [[nodiscard]] xcb_client_message_event_t messageTo(xcb_window_t window, std::string_view type,
                                                       std::uint8_t bitsOfAPart) const {
        const auto asked =
            xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(type.size()), type.data());
        const std::unique_ptr<xcb_intern_atom_reply_t, FreeReply> atom(
            xcb_intern_atom_reply(connection_, asked, nullptr));
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = bitsOfAPart;
        event.window = window;
        event.type = atom ? atom->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
        return event;
    }

    void send(const xcb_client_message_event_t& event, std::uint32_t mask) const {
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
        xcb_send_event(connection_, 0, root, mask, reinterpret_cast<const char*>(&event));
    }

    xcb_connection_t* connection_;
};

} // namespace

void activateWindow(QWidget& window, const std::string& token) {
    auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr) {
        // Qt's Wayland takes the token from there and removes it.
        if (!token.empty() && QGuiApplication::platformName().startsWith("wayland"))
            qputenv("XDG_ACTIVATION_TOKEN", token.c_str());
        window.activateWindow();
        return;
    }
    const X11Screen screen(x11->connection());
    const auto number = static_cast<xcb_window_t>(window.winId());
    if (const auto time = clickTimeOf(token))
        screen.requestActivation(number, *time);
    else
        window.activateWindow();
    if (!token.empty())
        screen.endStartup(number, token);
}

} // namespace velorin::host
