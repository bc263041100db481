// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Models/OutputName.h"

#include "ExportCore/OutputExtension.h"
#include "Kestra/ClientAPI/ContainerLimits.h"
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace Dialog {
namespace {

/// Where a file's extension begins, its dot included; the end of a name without one.
int endOfStem(const QString& path) {
    const std::string extension = ExportCore::OutputExtension::of(path.toUtf8());
    return extension.empty() ? path.size() : path.lastIndexOf(QLatin1Char('.'));
}

QString ending(const QString& extension) {
    return extension.isEmpty() ? extension : QLatin1Char('.') + extension;
}

bool hasKind(const QString& path) {
    return Kestra::ClientAPI::ContainerLimits::IsKnownExtension(ExportCore::OutputExtension::of(path.toUtf8()));
}

} // namespace

QString OutputName::suggestedFor(const QStringList& inputs, const QString& extension) {
    if (inputs.isEmpty())
        return {};
    const QString first = QFileInfo(inputs.front()).absoluteFilePath();
    const QString stem = first.left(endOfStem(first));
    QString plain = stem + ending(extension);
    if (!isOneOf(inputs, plain))
        return plain;
    return QCoreApplication::translate("Dialog::OutputName", "%1 (export)", "a file's name").arg(stem) +
           ending(extension);
}

QString OutputName::expanded(const QString& path) {
    return path == QStringLiteral("~") || path.startsWith(QStringLiteral("~/")) ? QDir::homePath() + path.mid(1) : path;
}

bool OutputName::isOneOf(const QStringList& inputs, const QString& path) {
    const QString clean = QDir::cleanPath(path);
    return std::any_of(inputs.begin(), inputs.end(), [&clean](const QString& input) {
        return QDir::cleanPath(QFileInfo(input).absoluteFilePath()) == clean;
    });
}

QString OutputName::withExtension(const QString& path, const QString& extension) {
    if (path.isEmpty() || path.endsWith(QLatin1Char('/')))
        return path;
    return (hasKind(path) ? path.left(endOfStem(path)) : path) + ending(extension);
}

QString OutputName::completed(const QString& path, const QString& extension) {
    const QString written = path.trimmed();
    const bool isFile = !written.isEmpty() && !written.endsWith(QLatin1Char('/'));
    return isFile && !hasKind(written) ? written + ending(extension) : written;
}

} // namespace Dialog
