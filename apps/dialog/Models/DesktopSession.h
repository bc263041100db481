// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::DesktopSession: what the desktop is told of exports.
#pragma once

#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <QString>

namespace Dialog {

/// Over D-Bus, without waiting for answers. Where there is no such service nothing happens, and nothing is said.
class DesktopSession : public QObject {
    Q_OBJECT
public:
    explicit DesktopSession(QObject* parent = nullptr);

    /// A notice that goes by itself.
    void notify(const QString& title, const QString& text);
    /// Keeps the computer from going to sleep, until `keep` is false.
    void keepAwake(bool keep, const QString& why);
    /// Has the file manager show the file among the others; opens its folder where none can.
    void showInFolder(const QString& path);

private:
    bool wanted = false;
    bool asked = false;
    QDBusUnixFileDescriptor lock; ///< sleep is inhibited as long as it is open
};

} // namespace Dialog
