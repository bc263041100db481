// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/FileFacts.h"

#include "ExportCore/SequenceName.h"
#include "Kestra/Conf/NumberedName.h"
#include "cli/JsonText.h"
#include <QDir>
#include <QFile>
#include <algorithm>
#include <sys/stat.h>

namespace Cli {
namespace {

/// In the order of their names.
template <class Condition>
QFileInfoList filesIn(const QDir& folder, const Condition& isMeant) {
    QFileInfoList files = folder.entryInfoList(QDir::Files | QDir::Hidden, QDir::Name);
    files.erase(std::remove_if(files.begin(), files.end(),
                               [&](const QFileInfo& file) { return !isMeant(file.fileName().toStdString()); }),
                files.end());
    return files;
}

QFileInfoList filesOf(const QFileInfo& output) {
    if (output.isFile())
        return {output};
    if (output.isDir())
        return filesIn(QDir(output.filePath()), &ExportCore::SequenceName::isUsualName);
    const auto name = Kestra::Conf::NumberedName::Parse(output.fileName().toStdString());
    if (!name)
        return {};
    return filesIn(output.absoluteDir(), [&name](const std::string& file) { return name->NumberOf(file).has_value(); });
}

std::string identityOf(const QString& path) {
    struct stat state = {};
    return ::stat(QFile::encodeName(path).constData(), &state) == 0
               ? std::to_string(state.st_dev) + ':' + std::to_string(state.st_ino)
               : std::string();
}

} // namespace

FileFacts FileFacts::of(const QFileInfoList& files) {
    FileFacts facts;
    facts.count = files.size();
    for (const QFileInfo& file : files) {
        facts.size += file.size();
        facts.modified = facts.modified.isValid() ? std::max(facts.modified, file.lastModified()) : file.lastModified();
    }
    if (!files.isEmpty())
        facts.identity = identityOf(files.first().filePath());
    return facts;
}

FileFacts FileFacts::ofOutput(const QString& output) {
    return of(filesOf(QFileInfo(output)));
}

QJsonObject FileFacts::object() const {
    return {{key("sizeBytes"), size}, {key("modified"), modified.toUTC().toString(Qt::ISODateWithMs)}};
}

} // namespace Cli
