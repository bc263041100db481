// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ErrorOutput.h"

#include "ExportCore/PlainText.h"
#include "Kestra/Proc/TranscodingError.h"
#include "cli/JsonText.h"
#include "cli/Terminal.h"
#include <QDateTime>
#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <mutex>
#include <unistd.h>

namespace Cli {
namespace {

using ExportCore::PlainText;
using Kestra::Proc::TranscodingError;

std::atomic<bool> json{false};
std::atomic<bool> quiet{false};
std::atomic<bool> logsOut{false};

/// What is on its way is one thread's.
struct Way {
    std::mutex mutex;
    int descriptor = STDERR_FILENO;
    int kept = -1;
    std::string job; ///< what stands in front of what is kept of it
    std::string status;
    std::size_t shown = 0; ///< columns that the status takes
};

Way& way() {
    static Way* const one = new Way; // libraries may have something to say to the very end
    return *one;
}

void writeAll(int descriptor, const std::string& bytes) {
    for (std::size_t at = 0; at < bytes.size();) {
        const ssize_t count = ::write(descriptor, bytes.data() + at, bytes.size() - at);
        if (count < 0 && errno != EINTR)
            return; // nobody is left to be told
        at += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
}

/// The last column stays free: a terminal that is written to its edge may go on to the next line.
std::size_t roomFor(int descriptor) {
    constexpr int USUAL = 80;
    return static_cast<std::size_t>(std::max(Terminal::columns(descriptor).value_or(USUAL) - 1, 1));
}

std::string erasing(Way& held) {
    const std::size_t columns = std::min(held.shown, roomFor(held.descriptor));
    return columns == 0 ? std::string() : '\r' + std::string(columns, ' ') + '\r';
}

/// In one write, so that lines of several threads do not mix.
void write(const std::string& line, bool isSaid = true) {
    Way& held = way();
    const std::lock_guard lock(held.mutex);
    if (isSaid)
        writeAll(held.descriptor, erasing(held) + line + '\n' + held.status);
    if (held.kept >= 0)
        writeAll(held.kept,
                 QDateTime::currentDateTime().toString(Qt::ISODateWithMs).toStdString() + ' ' + held.job + line + '\n');
}

void end(const char* type, TranscodingError code, const std::string& what, const std::string& path = {}) {
    if (!json)
        return write("editor-export: " + PlainText::escaped(what));
    QJsonObject object{{key("type"), key(type)},
                       {key("error"), key(Kestra::Proc::TranscodingErrorToString(code))},
                       {key("code"), static_cast<int>(code)},
                       {key("message"), QString::fromStdString(PlainText::escaped(what))}};
    if (!path.empty())
        object.insert(key("path"), QString::fromStdString(path));
    ErrorOutput::print(object);
}

} // namespace

void ErrorOutput::useJson() {
    json = true;
}

void ErrorOutput::useDescriptor(int descriptor) {
    const std::lock_guard lock(way().mutex);
    way().descriptor = descriptor;
}

void ErrorOutput::beQuiet() {
    quiet = true;
}

void ErrorOutput::keepLogsOut() {
    logsOut = true;
}

bool ErrorOutput::keepIn(const std::string& path) {
    // A pipe that nobody reads would be waited for.
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK, 0666);
    if (file >= 0)
        ::fcntl(file, F_SETFL, O_APPEND);
    const std::lock_guard lock(way().mutex);
    if (file >= 0 && way().kept >= 0)
        ::close(way().kept);
    if (file >= 0)
        way().kept = file;
    return file >= 0;
}

void ErrorOutput::keep(const std::string& what) {
    const std::string sentence = PlainText::escaped(what);
    write(json ? jsonLine({{key("type"), key("log")}, {key("message"), QString::fromStdString(sentence)}}) : sentence,
          false);
}

void ErrorOutput::keepUnder(const std::string& job) {
    const std::lock_guard lock(way().mutex);
    way().job = job.empty() ? job : job + ": ";
}

void ErrorOutput::refuse(const std::string& what, const std::string& path, TranscodingError code) {
    end("refused", code, what, path);
}

void ErrorOutput::fail(const std::string& what) {
    end("failed", TranscodingError::OutputFailed, what);
}

void ErrorOutput::tell(const std::string& type, const std::string& what) {
    const std::string sentence = PlainText::escaped(what);
    if (!json)
        return write("editor-export: " + type + ": " + sentence, !quiet);
    write(jsonLine({{key("type"), QString::fromStdString(type)}, {key("message"), QString::fromStdString(sentence)}}),
          !quiet);
}

void ErrorOutput::log(const std::string& line) {
    const std::string sentence = PlainText::escaped(line);
    const bool isSaid = !quiet && !logsOut;
    if (!json)
        return write(sentence, isSaid);
    write(jsonLine({{key("type"), key("log")}, {key("message"), QString::fromStdString(sentence)}}), isSaid);
}

void ErrorOutput::print(const QJsonObject& object) {
    write(jsonLine(object));
}

void ErrorOutput::tellJob(const QJsonObject& object, const std::string& what) {
    write(json ? jsonLine(object) : "editor-export: " + PlainText::escaped(what), !quiet);
}

void ErrorOutput::line(const std::string& text) {
    write(text);
}

void ErrorOutput::showStatus(const std::string& text) {
    Way& held = way();
    const std::lock_guard lock(held.mutex);
    const std::size_t covered = std::min(held.shown, roomFor(held.descriptor));
    std::string line = text.substr(0, roomFor(held.descriptor));
    held.shown = line.size();
    held.status = line;
    if (text.empty())
        return writeAll(held.descriptor, covered == 0 ? std::string() : '\r' + std::string(covered, ' ') + '\r');
    // Blanks over what is left of a longer line before.
    line.resize(std::max(line.size(), covered), ' ');
    writeAll(held.descriptor, '\r' + line);
}

} // namespace Cli
