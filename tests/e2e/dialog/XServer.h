// SPDX-License-Identifier: GPL-3.0-or-later
// An X server of the test's own, and what stands on its screen.
#pragma once

#include <QProcess>
#include <QString>
#include <memory>
#include <xcb/xcb.h>

namespace TestDialog {

class XServer {
public:
    /// Whether there is a program for it: scripts/setup installs one with the tests.
    static bool isInstalled();

    XServer();
    ~XServer();
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;

    /// For DISPLAY; empty where the server did not start.
    QString display() const { return name; }
    /// Of the largest window that is shown; empty where none is.
    QString title() const;
    /// As a press and a release of that key, with Alt, in the largest window that is shown.
    void pressWithAlt(char letter) const;

private:
    struct Disconnection {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    xcb_atom_t atom(const char* text) const;
    xcb_window_t root() const;
    xcb_window_t largest() const;
    xcb_keycode_t keyOf(char letter) const;

    QProcess process;
    QString name;
    std::unique_ptr<xcb_connection_t, Disconnection> connection;
};

} // namespace TestDialog
