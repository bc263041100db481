// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/PrivateName.h"

#include <QCryptographicHash>
#include <QList>
#include <algorithm>
#include <atomic>
#include <cctype>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>

namespace ExportCore {
namespace {

const char PREFIX[] = ".editor-export-";

/// Field 22 of the process's state; 0 when there is no such process.
quint64 startOf(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    // The second field is the program's name, which may hold blanks and parentheses.
    const auto name = text.rfind(')');
    if (name == std::string::npos)
        return 0;
    const QList<QByteArray> fields = QByteArray::fromStdString(text.substr(name + 1)).simplified().split(' ');
    return fields.size() > 19 ? fields[19].toULongLong() : 0;
}

/// Sixteen digits.
QByteArray checksumOf(const QByteArray& stem) {
    return QCryptographicHash::hash("unfinished export " + stem, QCryptographicHash::Sha256).toHex().left(16);
}

} // namespace

QByteArray PrivateName::make(const QByteArray& extension) {
    static std::atomic<unsigned> counter{0};
    PrivateName own;
    own.process = getpid();
    own.processStart = startOf(own.process);
    return own.toName(counter++, extension);
}

QByteArray PrivateName::toName(unsigned counter, const QByteArray& extension) const {
    const QByteArray stem =
        QByteArray::number(process) + '-' + QByteArray::number(processStart) + '-' + QByteArray::number(counter);
    const QByteArray name = PREFIX + stem + '-' + checksumOf(stem);
    return extension.isEmpty() ? name : name + '.' + extension;
}

std::optional<PrivateName> PrivateName::read(const QByteArray& name) {
    if (!name.startsWith(PREFIX))
        return std::nullopt;
    const int point = name.indexOf('.', 1);
    const QByteArray extension = point < 0 ? QByteArray() : name.mid(point + 1);
    const QList<QByteArray> parts = name.mid(0, point).mid(static_cast<int>(sizeof PREFIX) - 1).split('-');
    if (parts.size() != 4)
        return std::nullopt;
    PrivateName result;
    result.process = parts[0].toInt();
    result.processStart = parts[1].toULongLong();
    const bool plain = std::all_of(extension.begin(), extension.end(),
                                   [](char letter) { return std::isalnum(static_cast<unsigned char>(letter)) != 0; });
    // Made again from what was read, so that nothing but the very name passes, however its numbers are written.
    if (!plain || result.process <= 0 || result.toName(parts[2].toUInt(), extension) != name)
        return std::nullopt;
    return result;
}

bool PrivateName::isAlive() const {
    const quint64 start = startOf(process);
    return start != 0 && start == processStart;
}

} // namespace ExportCore
