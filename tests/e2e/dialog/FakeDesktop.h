// SPDX-License-Identifier: GPL-3.0-or-later
// The services of a desktop, as far as exports concern them; they keep what they are told.
#pragma once

#include <QDBusConnection>
#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QVariantMap>
#include <vector>

namespace TestDialog {

class FakeNotifications : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")
public:
    struct Notice {
        QString program;
        QString icon;
        QString title;
        QString text;
        QVariantMap hints;
    };
    std::vector<Notice> notices;

public Q_SLOTS:
    uint Notify(const QString& program, uint replaced, const QString& icon, const QString& title, const QString& text,
                const QStringList& actions, const QVariantMap& hints, int milliseconds);
};

class FakeLogin : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Manager")
public:
    struct Inhibition {
        QString what;
        QString who;
        QString why;
        QString mode;
        int readEnd; ///< of the pipe whose other end who wished it holds
    };

    ~FakeLogin() override;
    /// Whether the last one has not been given up.
    bool isHeld() const;

    std::vector<Inhibition> inhibitions;

public Q_SLOTS:
    QDBusUnixFileDescriptor Inhibit(const QString& what, const QString& who, const QString& why, const QString& mode);
};

class FakeFileManager : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")
public:
    QStringList shown;

public Q_SLOTS:
    void ShowItems(const QStringList& items, const QString& startup);
};

/// What opens files and folders, in place of the desktop's programs, as long as it lives.
class FakeOpener : public QObject {
    Q_OBJECT
public:
    FakeOpener();
    ~FakeOpener() override;

    QStringList opened;

public Q_SLOTS:
    void open(const QUrl& url);
};

/// All of them on a bus, as long as it lives. They answer from the event loop.
class FakeDesktop {
public:
    explicit FakeDesktop(const QString& address);
    ~FakeDesktop();
    FakeDesktop(const FakeDesktop&) = delete;
    FakeDesktop& operator=(const FakeDesktop&) = delete;

    /// Whether every service has its name.
    bool isComplete() const { return complete; }

    FakeNotifications notifications;
    FakeLogin login;
    FakeFileManager fileManager;

private:
    void offer(const char* service, const char* path, QObject& object);

    const QString name;
    QDBusConnection connection;
    bool complete = true;
};

} // namespace TestDialog
