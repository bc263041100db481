// SPDX-License-Identifier: GPL-3.0-or-later
#include "Program.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <algorithm>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace TestCli {
namespace {

/// Which only a hang reaches.
constexpr int DEADLINE = 1'000'000;

} // namespace

QStringList Result::errorLines() const {
    return errors.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

Program::Program(const std::vector<std::string>& arguments)
    : arguments(arguments) {
    for (const std::string& word : TestSupport::environmentOfThis())
        environment[word.substr(0, word.find('='))] = word.substr(word.find('=') + 1);
    // Nobody's own presets or settings have a say.
    environment["XDG_CONFIG_HOME"] = "/nonexistent";
    environment["LC_ALL"] = "C";
    // Who runs the tests in the background may ignore these, and a program that is told to ignore them does so.
    for (const int number : {SIGINT, SIGQUIT, SIGHUP, SIGTERM})
        std::signal(number, SIG_DFL);
}

void Program::dropRights() {
    wrapper = {"setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"};
}

void Program::setWrapper(const QStringList& command) {
    wrapper.clear();
    for (const QString& word : command)
        wrapper.push_back(word.toStdString());
}

void Program::start() {
    static TestSupport::Starter program(EDITOR_EXPORT_PROGRAM, KESTRA_CODECS);
    std::vector<std::string> words;
    for (const auto& [name, value] : environment)
        words.push_back(name + '=' + value);
    if (wrapper.empty() && !environment.count("LD_PRELOAD")) {
        process = program.start(arguments, words);
        return;
    }
    std::vector<std::string> command = wrapper;
    command.emplace_back(EDITOR_EXPORT_PROGRAM);
    command.insert(command.end(), arguments.begin(), arguments.end());
    process = TestSupport::startProgram(command, words);
}

bool Program::waitUntil(const std::function<bool()>& condition) {
    const QDeadlineTimer deadline(DEADLINE);
    while (!condition())
        if (deadline.hasExpired() || !process->wait(10))
            return condition();
    return true;
}

bool Program::waitForError(const QString& text) {
    return waitUntil([&] { return errors().contains(text); });
}

bool Program::waitUntilOpen(const QString& path) {
    return waitUntil([&] {
        const QDir files(QStringLiteral("/proc/%1/fd").arg(process->number()));
        const QFileInfoList all = files.entryInfoList(QDir::Files | QDir::System);
        return std::any_of(all.begin(), all.end(), [&](const QFileInfo& file) { return file.symLinkTarget() == path; });
    });
}

void Program::signal(int number) const {
    if (!process->ended())
        ::kill(process->number(), number);
}

Result Program::finish() {
    const QDeadlineTimer deadline(DEADLINE);
    while (!deadline.hasExpired() && process->wait(static_cast<int>(deadline.remainingTime())))
        ;
    Result result;
    result.ended = process->ended();
    if (result.ended && WIFEXITED(process->status))
        result.code = WEXITSTATUS(process->status);
    result.memory = process->usage.ru_maxrss * 1024;
    result.errors = errors();
    result.output = QString::fromStdString(process->output);
    result.rawOutput = process->output;
    result.rawErrors = process->errors;
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
