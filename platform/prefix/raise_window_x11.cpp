// SPDX-License-Identifier: MIT
// Other programs' windows, as the window manager of an X display lists them (EWMH).
#include "platform/process.h"

#include <QByteArray>

#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include <xcb/xcb.h>

namespace
{

struct Free {
    void operator()(void *reply) const { std::free(reply); } // NOLINT(*-no-malloc): xcb's own
};

template <typename T>
using Reply = std::unique_ptr<T, Free>;

class Display
{
public:
    Display() : m_connection(xcb_connect(nullptr, &m_screen)) {}

    ~Display() { xcb_disconnect(m_connection); }

    Display(const Display &) = delete;
    Display &operator=(const Display &) = delete;

    bool isOpen() const { return xcb_connection_has_error(m_connection) == 0; }

    std::vector<xcb_window_t> windows() const
    {
        const QByteArray bytes = property(root(), "_NET_CLIENT_LIST");
        std::vector<xcb_window_t> windows(static_cast<std::size_t>(bytes.size()) /
                                          sizeof(xcb_window_t));
        std::memcpy(windows.data(), bytes.constData(), windows.size() * sizeof(xcb_window_t));
        return windows;
    }

    QString caption(xcb_window_t window) const
    {
        const QByteArray name = property(window, "_NET_WM_NAME");
        return name.isEmpty() ? QString::fromLatin1(property(window, "WM_NAME"))
                              : QString::fromUtf8(name);
    }

    /// Asks the window manager, which also brings a window back that is an icon.
    void activate(xcb_window_t window) const
    {
        constexpr std::uint32_t asPager = 2; // the user wants it, whatever has the focus
        xcb_client_message_event_t event = {};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = window;
        event.type = atom("_NET_ACTIVE_WINDOW");
        event.data.data32[0] = asPager;
        std::array<char, 32> message = {};
        std::memcpy(message.data(), &event, sizeof event);
        xcb_send_event(m_connection, 0, root(),
                       XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                       message.data());
        // An answer tells that the server has seen the message too: closing at once could lose it.
        const Reply<xcb_get_input_focus_reply_t> answer(
            xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    }

private:
    xcb_window_t root() const
    {
        xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(m_connection));
        for (int i = 0; i < m_screen; ++i) {
            xcb_screen_next(&screens);
        }
        return screens.data->root;
    }

    xcb_atom_t atom(const QByteArray &name) const
    {
        const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
            m_connection,
            xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()),
                            name.constData()),
            nullptr));
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }

    QByteArray property(xcb_window_t window, const QByteArray &name) const
    {
        constexpr std::uint32_t longest = 4096; // in units of four bytes
        const Reply<xcb_get_property_reply_t> reply(
            xcb_get_property_reply(m_connection,
                                   xcb_get_property(m_connection, 0, window, atom(name),
                                                    XCB_GET_PROPERTY_TYPE_ANY, 0, longest),
                                   nullptr));
        return reply ? QByteArray(static_cast<const char *>(xcb_get_property_value(reply.get())),
                                  xcb_get_property_value_length(reply.get()))
                     : QByteArray();
    }

    int m_screen = 0;
    xcb_connection_t *m_connection;
};

} // namespace

bool SystemProcesses::raiseWindow(const QString &caption)
{
    const Display display;
    if (!display.isOpen()) {
        return false;
    }
    for (const xcb_window_t window : display.windows()) {
        if (display.caption(window) == caption) {
            display.activate(window);
            return true;
        }
    }
    return false;
}
