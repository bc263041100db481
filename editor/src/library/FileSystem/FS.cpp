// SPDX-License-Identifier: GPL-3.0-or-later
#include "FileSystem/FS.h"
#include <QDir>
#include <QLatin1Char>

namespace FS {

namespace {

const QLatin1Char SLASH('/');

void appendComponent(QString& path, const QString& component) {
    if (component.isEmpty())
        return;
    if (path.isEmpty()) {
        path = component;
        return;
    }
    while (path.size() > 1 && path.endsWith(SLASH))
        path.chop(1);
    if (!path.endsWith(SLASH))
        path += SLASH;
    int begin = 0;
    while (begin < component.size() && component.at(begin) == SLASH)
        ++begin;
    path += component.midRef(begin);
}

} // namespace

QString joinPath(std::initializer_list<QString> components, const QString& extension) {
    QString path;
    for (const QString& component : components)
        appendComponent(path, component);
    if (path.isEmpty() || extension.isEmpty())
        return path;
    const QLatin1Char dot('.');
    return extension.startsWith(dot) ? path + extension : path + dot + extension;
}

bool makePath(const QString& path) {
    return !path.isEmpty() && QDir().mkpath(path);
}

} // namespace FS
