#include "app/scaling.h"

#include <QRect>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <xcb/randr.h>
#include <xcb/xcb.h>

namespace {

struct Free
{
    void operator()(void *memory) const { std::free(memory); }
};
template<typename Reply>
using Answer = std::unique_ptr<Reply, Free>;

constexpr uint32_t LongestProperty = 65536; // units of four bytes

/** A connection of our own, as Qt has none yet. Questions are sent together before the first answer is awaited. */
class Server final
{
public:
    Server() : m_connection(xcb_connect(nullptr, &m_number)) {}
    ~Server() { xcb_disconnect(m_connection); }
    Server(const Server &) = delete;
    Server &operator=(const Server &) = delete;

    /** Where windows come to lie; nothing where the server does not answer. */
    const xcb_screen_t *screen() const
    {
        if (xcb_connection_has_error(m_connection))
            return nullptr;
        auto screens = xcb_setup_roots_iterator(xcb_get_setup(m_connection));
        for (int i = 0; i < m_number && screens.rem > 0; ++i)
            xcb_screen_next(&screens);
        return screens.data;
    }

    xcb_intern_atom_cookie_t askForAtom(const QByteArray &name)
    {
        return xcb_intern_atom(m_connection, true, uint16_t(name.size()), name.constData());
    }
    xcb_atom_t atom(xcb_intern_atom_cookie_t asked)
    {
        const Answer<xcb_intern_atom_reply_t> answer(xcb_intern_atom_reply(m_connection, asked, nullptr));
        return answer ? answer->atom : xcb_atom_t(XCB_ATOM_NONE);
    }

    xcb_get_property_cookie_t askForProperty(xcb_window_t root, xcb_atom_t name, xcb_atom_t type)
    {
        return xcb_get_property(m_connection, false, root, name, type, 0, LongestProperty);
    }
    QByteArray property(xcb_get_property_cookie_t asked)
    {
        const Answer<xcb_get_property_reply_t> answer(xcb_get_property_reply(m_connection, asked, nullptr));
        if (!answer)
            return {};
        return QByteArray(static_cast<const char *>(xcb_get_property_value(answer.get())),
                          xcb_get_property_value_length(answer.get()));
    }

    xcb_randr_get_monitors_cookie_t askForMonitors(xcb_window_t root)
    {
        return xcb_randr_get_monitors(m_connection, root, true);
    }
    /** The primary monitor, or the first; null where none is told. */
    QRect monitor(xcb_randr_get_monitors_cookie_t asked)
    {
        const Answer<xcb_randr_get_monitors_reply_t> answer(
            xcb_randr_get_monitors_reply(m_connection, asked, nullptr));
        QRect found;
        if (!answer)
            return found;
        for (auto it = xcb_randr_get_monitors_monitors_iterator(answer.get()); it.rem > 0;
             xcb_randr_monitor_info_next(&it)) {
            if (found.isNull() || it.data->primary)
                found = QRect(it.data->x, it.data->y, it.data->width, it.data->height);
        }
        return found;
    }

    bool isOwned(xcb_atom_t selection)
    {
        if (selection == XCB_ATOM_NONE)
            return false;
        const Answer<xcb_get_selection_owner_reply_t> answer(xcb_get_selection_owner_reply(
            m_connection, xcb_get_selection_owner(m_connection, selection), nullptr));
        return answer && answer->owner != XCB_WINDOW_NONE;
    }

    int number() const { return m_number; }

private:
    int m_number = 0;
    xcb_connection_t *m_connection;
};

/** The entry of the X resources that a desktop keeps its scale in; 0 where it is missing. */
double resourceDpi(const QByteArray &resources)
{
    static const QByteArray key("Xft.dpi:\t");
    double dpi = 0;
    for (const QByteArray &line : resources.split('\n')) {
        if (line.startsWith(key))
            dpi = qRound(line.mid(key.size()).toDouble());
    }
    return dpi;
}

/** The screen without panels, as the window manager tells it; null where it tells none. */
QRect workArea(const QByteArray &property)
{
    uint32_t sides[4] = {};
    if (property.size() < int(sizeof sides))
        return {};
    std::copy_n(property.constData(), sizeof sides, reinterpret_cast<char *>(sides));
    return QRect(int(sides[0]), int(sides[1]), int(sides[2]), int(sides[3]));
}

/** Whether Qt is going to draw by X11, as far as can be told before it does. */
bool isDrawnByX11()
{
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    return platform.isEmpty() ? qgetenv("XDG_SESSION_TYPE") != "wayland" : platform.startsWith("xcb");
}

} // namespace

Scaling::Desktop Scaling::readDesktop()
{
    if (!isDrawnByX11())
        return {};
    Server server;
    const xcb_screen_t *screen = server.screen();
    if (!screen || screen->width_in_millimeters == 0)
        return {};
    const auto resources = server.askForProperty(screen->root, XCB_ATOM_RESOURCE_MANAGER, XCB_ATOM_STRING);
    const auto monitors = server.askForMonitors(screen->root);
    const auto areaName = server.askForAtom("_NET_WORKAREA");
    const auto settingsName = server.askForAtom("_XSETTINGS_S" + QByteArray::number(server.number()));

    Desktop desktop;
    desktop.dpi = resourceDpi(server.property(resources));
    const QRect monitor = server.monitor(monitors);
    const xcb_atom_t area = server.atom(areaName);
    const xcb_atom_t settings = server.atom(settingsName);
    if (desktop.dpi <= 0) {
        if (server.isOwned(settings)) // then that is what Qt asks
            return {};
        desktop.dpi = screen->width_in_pixels * 25.4 / screen->width_in_millimeters;
    }

    QRect room(0, 0, screen->width_in_pixels, screen->height_in_pixels);
    for (const QRect &part :
         {monitor, workArea(server.property(server.askForProperty(screen->root, area, XCB_ATOM_CARDINAL)))}) {
        if (!part.isNull())
            room &= part;
    }
    desktop.room = room.size();
    return desktop;
}
