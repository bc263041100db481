// SPDX-License-Identifier: GPL-3.0-or-later
#include "XServer.h"

#include <QStandardPaths>
#include <QStringList>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace TestDialog {
namespace {

constexpr int DEADLINE = 60'000;

QString program() {
    return QStandardPaths::findExecutable(QStringLiteral("Xvfb"));
}

struct Freeing {
    void operator()(void* reply) const { std::free(reply); }
};
template <class Reply>
std::unique_ptr<Reply, Freeing> owned(Reply* reply) {
    return std::unique_ptr<Reply, Freeing>(reply);
}

} // namespace

bool XServer::isInstalled() {
    return !program().isEmpty();
}

XServer::XServer() {
    process.start(program(), {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                              QStringLiteral("0"), QStringLiteral("1280x1024x24"), QStringLiteral("-nolisten"),
                              QStringLiteral("tcp"), QStringLiteral("-noreset")});
    QByteArray number;
    while (!number.endsWith('\n') && process.waitForReadyRead(DEADLINE))
        number += process.readAllStandardOutput();
    if (number.trimmed().isEmpty())
        return;
    const QString wanted = QLatin1Char(':') + QString::fromLatin1(number.trimmed());
    connection.reset(xcb_connect(wanted.toLatin1().constData(), nullptr));
    if (xcb_connection_has_error(connection.get()) == 0)
        name = wanted;
}

XServer::~XServer() {
    connection.reset();
    process.terminate();
    process.waitForFinished(DEADLINE);
}

xcb_atom_t XServer::atom(const char* text) const {
    const auto cookie = xcb_intern_atom(connection.get(), 0, static_cast<std::uint16_t>(std::strlen(text)), text);
    const auto reply = owned(xcb_intern_atom_reply(connection.get(), cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

xcb_window_t XServer::root() const {
    return xcb_setup_roots_iterator(xcb_get_setup(connection.get())).data->root;
}

xcb_window_t XServer::largest() const {
    const auto tree = owned(xcb_query_tree_reply(connection.get(), xcb_query_tree(connection.get(), root()), nullptr));
    xcb_window_t found = XCB_WINDOW_NONE;
    int most = 0;
    for (int i = 0; tree && i < xcb_query_tree_children_length(tree.get()); ++i) {
        const xcb_window_t window = xcb_query_tree_children(tree.get())[i];
        const auto look = owned(xcb_get_window_attributes_reply(
            connection.get(), xcb_get_window_attributes(connection.get(), window), nullptr));
        const auto size =
            owned(xcb_get_geometry_reply(connection.get(), xcb_get_geometry(connection.get(), window), nullptr));
        const bool isShown = look && look->map_state == XCB_MAP_STATE_VIEWABLE;
        if (isShown && size && size->width * size->height > most) {
            most = size->width * size->height;
            found = window;
        }
    }
    return found;
}

QString XServer::title() const {
    const xcb_window_t window = largest();
    if (window == XCB_WINDOW_NONE)
        return {};
    constexpr std::uint32_t longest = 1000;
    const auto cookie =
        xcb_get_property(connection.get(), 0, window, atom("_NET_WM_NAME"), atom("UTF8_STRING"), 0, longest);
    const auto reply = owned(xcb_get_property_reply(connection.get(), cookie, nullptr));
    if (!reply)
        return {};
    return QString::fromUtf8(static_cast<const char*>(xcb_get_property_value(reply.get())),
                             xcb_get_property_value_length(reply.get()));
}

xcb_keycode_t XServer::keyOf(char letter) const {
    const xcb_setup_t* const setup = xcb_get_setup(connection.get());
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const auto cookie = xcb_get_keyboard_mapping(connection.get(), setup->min_keycode, count);
    const auto mapping = owned(xcb_get_keyboard_mapping_reply(connection.get(), cookie, nullptr));
    if (!mapping)
        return 0;
    const xcb_keysym_t* const symbols = xcb_get_keyboard_mapping_keysyms(mapping.get());
    for (int key = 0; key < count; ++key)
        if (symbols[key * mapping->keysyms_per_keycode] == static_cast<xcb_keysym_t>(letter)) // as in ASCII
            return static_cast<xcb_keycode_t>(setup->min_keycode + key);
    return 0;
}

void XServer::pressWithAlt(char letter) const {
    const xcb_window_t window = largest();
    if (window == XCB_WINDOW_NONE)
        return;
    // There is no window manager that would give it the focus.
    xcb_set_input_focus(connection.get(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    xcb_key_press_event_t event = {};
    event.detail = keyOf(letter);
    event.root = root();
    event.event = window;
    event.child = XCB_WINDOW_NONE;
    event.same_screen = 1;
    event.state = XCB_MOD_MASK_1;
    for (const std::uint8_t type : {XCB_KEY_PRESS, XCB_KEY_RELEASE}) {
        event.response_type = type;
        xcb_send_event(connection.get(), 0, window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&event));
    }
    xcb_flush(connection.get());
}

} // namespace TestDialog
