// SPDX-License-Identifier: GPL-3.0-or-later
#include "PrivateBus.h"

#include "support/FileHelpers.h"
#include <QStandardPaths>
#include <QStringList>

namespace TestDialog {
namespace {

constexpr int DEADLINE = 60'000;

/// Nobody is started by it, and everybody may say everything.
const char* const CONFIGURATION = R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path=%FOLDER%/bus</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*"/>
    <allow receive_sender="*"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

QString program() {
    return QStandardPaths::findExecutable(QStringLiteral("dbus-daemon"));
}

} // namespace

bool PrivateBus::isInstalled() {
    return !program().isEmpty();
}

PrivateBus::PrivateBus() {
    const QString file = folder.filePath(QStringLiteral("configuration"));
    TestFiles::write(file.toStdString(), QByteArray(CONFIGURATION).replace("%FOLDER%", folder.path().toUtf8()));
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program(), {QStringLiteral("--config-file=") + file, QStringLiteral("--nofork"),
                              QStringLiteral("--nopidfile"), QStringLiteral("--print-address=1")});
    QByteArray address;
    while (!address.endsWith('\n') && process.waitForReadyRead(DEADLINE))
        address += process.readAllStandardOutput();
    for (const char* const name : {"DBUS_SESSION_BUS_ADDRESS", "DBUS_SYSTEM_BUS_ADDRESS"})
        qputenv(name, address.trimmed());
    place = QString::fromUtf8(address.trimmed());
}

PrivateBus::~PrivateBus() {
    process.terminate();
    process.waitForFinished(DEADLINE);
}

} // namespace TestDialog
