// SPDX-License-Identifier: GPL-3.0-or-later
// The built program, run as people run it.
#pragma once

#include "support/Starter.h"
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace TestCli {

struct Result {
    bool ended = false; ///< by itself, within the deadline
    int code = -1;      ///< -1 when a signal ended it
    qint64 memory = 0;  ///< bytes that it had at most
    QString output;
    QString errors;
    std::string rawOutput; ///< as it came, be it UTF-8 or not
    std::string rawErrors;

    QStringList errorLines() const;
};

/// One process. The destructor kills what still runs. It is started by a TestSupport::Starter, but under another
/// program or with a library preloaded in the usual way.
class Program {
public:
    explicit Program(const std::vector<std::string>& arguments);

    void setEnvironment(const char* name, const std::string& value) { environment[name] = value; }
    /// As a user without any rights, where the test runs as root.
    void dropRights();
    /// Runs the program under another one, given with its arguments.
    void setWrapper(const QStringList& command);

    void start();
    /// False when the program ended before.
    bool waitUntil(const std::function<bool()>& condition);
    /// Waits until a line on standard error contains the text; false when the program ended before.
    bool waitForError(const QString& text);
    /// Waits until the program has the file open; false when it ended before.
    bool waitUntilOpen(const QString& path);
    void signal(int number) const;
    Result finish();
    Result run() {
        start();
        return finish();
    }

private:
    QString errors() const { return QString::fromStdString(process->errors); }

    const std::vector<std::string> arguments;
    std::vector<std::string> wrapper;
    std::map<std::string, std::string> environment;
    std::unique_ptr<TestSupport::Running> process;
};

Result run(const std::vector<std::string>& arguments);
/// The object on every line; an empty one for a line that is none.
QList<QJsonObject> jsonLines(const QString& text);

} // namespace TestCli
