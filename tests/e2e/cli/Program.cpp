#include "Program.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QProcessEnvironment>
#include <QTextCodec>
#include <csignal>
#include <gtest/gtest.h>
#include <unistd.h>

namespace TestCli {
namespace {

/// Which only a hang reaches.
constexpr int DEADLINE = 1'000'000;

} // namespace

QStringList Result::errorLines() const {
    return errors.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

Program::Program(const std::vector<std::string>& given) {
    // QProcess encodes arguments by this process's locale; the program has to do without any.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    for (const std::string& argument : given)
        arguments << QString::fromStdString(argument);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // Nobody's own presets or settings have a say.
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), QStringLiteral("/nonexistent"));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    process.setProcessEnvironment(environment);
    // Who runs the tests in the background may ignore these, and a program that is told to ignore them does so.
    for (const int number : {SIGINT, SIGQUIT, SIGHUP, SIGTERM})
        std::signal(number, SIG_DFL);
}

Program::~Program() {
    if (process.state() != QProcess::NotRunning) {
        process.kill();
        process.waitForFinished();
    }
}

void Program::setEnvironment(const char* name, const std::string& value) {
    QProcessEnvironment environment = process.processEnvironment();
    environment.insert(QString::fromUtf8(name), QString::fromStdString(value));
    process.setProcessEnvironment(environment);
}

void Program::dropRights() {
    wrapper = QStringList{QStringLiteral("setpriv"), QStringLiteral("--reuid=65534"), QStringLiteral("--regid=65534"),
                          QStringLiteral("--clear-groups")};
}

void Program::start() {
    QStringList command = wrapper;
    command << QStringLiteral(EDITOR_EXPORT_PROGRAM) << arguments;
    process.start(command.first(), command.mid(1));
    if (!process.waitForStarted())
        qFatal("Cannot run %s", qPrintable(command.first()));
}

bool Program::waitForError(const QString& text) {
    const QDeadlineTimer deadline(DEADLINE);
    while (!QString::fromUtf8(errors).contains(text)) {
        if (process.state() == QProcess::NotRunning || deadline.hasExpired())
            return false;
        process.waitForReadyRead(50);
        errors += process.readAllStandardError();
    }
    return true;
}

bool Program::waitUntilOpen(const QString& path) {
    const QDir files(QStringLiteral("/proc/%1/fd").arg(process.processId()));
    const QDeadlineTimer deadline(DEADLINE);
    for (;;) {
        for (const QFileInfo& file : files.entryInfoList(QDir::Files | QDir::System))
            if (file.symLinkTarget() == path)
                return true;
        if (process.state() == QProcess::NotRunning || deadline.hasExpired())
            return false;
        process.waitForReadyRead(10);
    }
}

void Program::signal(int number) const {
    ::kill(static_cast<pid_t>(process.processId()), number);
}

Result Program::finish() {
    Result result;
    result.ended = process.state() == QProcess::NotRunning || process.waitForFinished(DEADLINE);
    if (result.ended && process.exitStatus() == QProcess::NormalExit)
        result.code = process.exitCode();
    errors += process.readAllStandardError();
    result.errors = QString::fromUtf8(errors);
    result.output = QString::fromUtf8(process.readAllStandardOutput());
    // Also where the exit code is lost: to a second signal, or under another program.
    EXPECT_FALSE(result.errors.contains(QLatin1String("Sanitizer: ")) ||
                 result.errors.contains(QLatin1String("runtime error: ")))
        << result.errors.toStdString();
    return result;
}

Result run(const std::vector<std::string>& arguments) {
    return Program(arguments).run();
}

QList<QJsonObject> jsonLines(const QString& text) {
    QList<QJsonObject> objects;
    for (const QString& line : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        objects << QJsonDocument::fromJson(line.toUtf8()).object();
    return objects;
}

} // namespace TestCli
