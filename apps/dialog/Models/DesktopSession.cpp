// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Models/DesktopSession.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>
#include <QVariantMap>

namespace Dialog {
namespace {

QString literal(const char* text) {
    return QString::fromLatin1(text);
}

QDBusMessage notice(const QString& title, const QString& text) {
    QDBusMessage call = QDBusMessage::createMethodCall(literal("org.freedesktop.Notifications"),
                                                       literal("/org/freedesktop/Notifications"),
                                                       literal("org.freedesktop.Notifications"), literal("Notify"));
    constexpr int usualTime = -1;
    // The text is markup there, the title is not.
    call.setArguments({literal("editor-export-dialog"), 0U, literal("editor-export"), title, text.toHtmlEscaped(),
                       QStringList(), QVariantMap{{literal("desktop-entry"), literal("editor-export-dialog")}},
                       usualTime});
    return call;
}

QDBusMessage inhibition(const QString& why) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(literal("org.freedesktop.login1"), literal("/org/freedesktop/login1"),
                                       literal("org.freedesktop.login1.Manager"), literal("Inhibit"));
    call.setArguments({literal("sleep:idle"), literal("EditorExport"), why, literal("block")});
    return call;
}

} // namespace

DesktopSession::DesktopSession(QObject* parent)
    : QObject(parent) {}

void DesktopSession::notify(const QString& title, const QString& text) {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.isConnected())
        bus.asyncCall(notice(title, text));
}

void DesktopSession::keepAwake(bool keep, const QString& why) {
    wanted = keep;
    if (!keep) {
        lock = {};
        return;
    }
    const QDBusConnection bus = QDBusConnection::systemBus();
    if (asked || lock.isValid() || !bus.isConnected())
        return;
    asked = true;
    auto* const call = new QDBusPendingCallWatcher(bus.asyncCall(inhibition(why)), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
        const QDBusPendingReply<QDBusUnixFileDescriptor> reply = *call;
        call->deleteLater();
        asked = false;
        if (wanted && !reply.isError())
            lock = reply.value();
    });
}

void DesktopSession::showInFolder(const QString& path) {
    const QString folder = QFileInfo(path).absolutePath();
    const auto openFolder = [folder] { QDesktopServices::openUrl(QUrl::fromLocalFile(folder)); };
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return void(openFolder());
    QDBusMessage call = QDBusMessage::createMethodCall(literal("org.freedesktop.FileManager1"),
                                                       literal("/org/freedesktop/FileManager1"),
                                                       literal("org.freedesktop.FileManager1"), literal("ShowItems"));
    call.setArguments({QStringList(QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)), QString()});
    auto* const answer = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [answer, openFolder] {
        answer->deleteLater();
        if (answer->isError())
            openFolder();
    });
}

} // namespace Dialog
