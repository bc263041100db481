// SPDX-License-Identifier: GPL-3.0-or-later
#include "FakeDesktop.h"

#include <QDesktopServices>
#include <array>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace TestDialog {

uint FakeNotifications::Notify(const QString& program, uint, const QString& icon, const QString& title,
                               const QString& text, const QStringList&, const QVariantMap& hints, int) {
    notices.push_back({program, icon, title, text, hints});
    return static_cast<uint>(notices.size());
}

FakeLogin::~FakeLogin() {
    for (const Inhibition& inhibition : inhibitions)
        ::close(inhibition.readEnd);
}

bool FakeLogin::isHeld() const {
    if (inhibitions.empty())
        return false;
    pollfd end = {inhibitions.back().readEnd, POLLIN, 0};
    return ::poll(&end, 1, 0) == 0; // else it has hung up
}

QDBusUnixFileDescriptor FakeLogin::Inhibit(const QString& what, const QString& who, const QString& why,
                                           const QString& mode) {
    std::array<int, 2> ends = {-1, -1};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        return {};
    inhibitions.push_back({what, who, why, mode, ends[0]});
    QDBusUnixFileDescriptor given;
    given.giveFileDescriptor(ends[1]);
    return given;
}

void FakeFileManager::ShowItems(const QStringList& items, const QString&) {
    shown << items;
}

FakeOpener::FakeOpener() {
    QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open");
}

FakeOpener::~FakeOpener() {
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
}

void FakeOpener::open(const QUrl& url) {
    opened << url.toLocalFile();
}

FakeDesktop::FakeDesktop(const QString& address)
    : name(QStringLiteral("fake-desktop"))
    , connection(QDBusConnection::connectToBus(address, name)) {
    offer("org.freedesktop.Notifications", "/org/freedesktop/Notifications", notifications);
    offer("org.freedesktop.login1", "/org/freedesktop/login1", login);
    offer("org.freedesktop.FileManager1", "/org/freedesktop/FileManager1", fileManager);
}

FakeDesktop::~FakeDesktop() {
    for (const char* const service :
         {"org.freedesktop.Notifications", "org.freedesktop.login1", "org.freedesktop.FileManager1"})
        connection.unregisterService(QString::fromLatin1(service));
    QDBusConnection::disconnectFromBus(name);
}

void FakeDesktop::offer(const char* service, const char* path, QObject& object) {
    complete = connection.registerObject(QString::fromLatin1(path), &object, QDBusConnection::ExportAllSlots) &&
               connection.registerService(QString::fromLatin1(service)) && complete;
}

} // namespace TestDialog
