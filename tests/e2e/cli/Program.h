// The built program, run as people run it.
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <string>
#include <vector>

namespace TestCli {

struct Result {
    bool ended = false; ///< by itself, within the deadline
    int code = -1;      ///< -1 when a signal ended it
    QString output;
    QString errors;

    QStringList errorLines() const;
};

/// One process. The destructor kills what still runs.
class Program {
public:
    explicit Program(const std::vector<std::string>& arguments);
    ~Program();

    void setEnvironment(const char* name, const std::string& value);
    /// As a user without any rights, where the test runs as root.
    void dropRights();
    /// Runs the program under another one, given with its arguments.
    void setWrapper(const QStringList& command) { wrapper = command; }

    void start();
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
    QProcess process;
    QStringList arguments;
    QStringList wrapper;
    QByteArray errors;
};

Result run(const std::vector<std::string>& arguments);
/// The object on every line; an empty one for a line that is none.
QList<QJsonObject> jsonLines(const QString& text);

} // namespace TestCli
