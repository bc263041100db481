#include "ExportCore/PrivateName.h"

#include <QList>
#include <atomic>
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

} // namespace

QByteArray PrivateName::make(const QByteArray& extension) {
    static std::atomic<unsigned> counter{0};
    QByteArray name = PREFIX + QByteArray::number(getpid()) + '-' + QByteArray::number(startOf(getpid())) + '-' +
                      QByteArray::number(counter++);
    return extension.isEmpty() ? name : name + '.' + extension;
}

std::optional<PrivateName> PrivateName::read(const QByteArray& name) {
    if (!name.startsWith(PREFIX))
        return std::nullopt;
    const QByteArray stem = name.mid(static_cast<int>(sizeof PREFIX) - 1).split('.').first();
    const QList<QByteArray> parts = stem.split('-');
    if (parts.size() != 3)
        return std::nullopt;
    bool isProcess = false, isStart = false, isCounter = false;
    PrivateName result;
    result.process = parts[0].toInt(&isProcess);
    result.processStart = parts[1].toULongLong(&isStart);
    parts[2].toUInt(&isCounter);
    if (!isProcess || !isStart || !isCounter || result.process <= 0)
        return std::nullopt;
    return result;
}

bool PrivateName::isAlive() const {
    const quint64 start = startOf(process);
    return start != 0 && start == processStart;
}

} // namespace ExportCore
