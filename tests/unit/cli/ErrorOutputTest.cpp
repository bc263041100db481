// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ErrorOutput.h"
#include "cli/ErrorCapture.h"
#include <QJsonDocument>
#include <QJsonObject>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// Runs in a process of its own, whose standard error it returns: what is set here is set for good.
template <class Body>
std::string errorsOf(const Body& body) {
    int ends[2];
    EXPECT_EQ(::pipe(ends), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(ends[1], STDERR_FILENO);
        ::close(ends[0]);
        ::close(ends[1]);
        body();
        _exit(0);
    }
    ::close(ends[1]);
    std::string text;
    char buffer[4096];
    for (ssize_t count = 0; (count = ::read(ends[0], buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(count));
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    return text;
}

void say(const std::string& text) {
    EXPECT_EQ(::write(STDERR_FILENO, text.data(), text.size()), static_cast<ssize_t>(text.size()));
}

TEST(ErrorCapture, MakesAnObjectOfEveryLineThatIsWrittenPastEverybody) {
    const std::string text = errorsOf([] {
        Cli::ErrorOutput::useJson();
        {
            const Cli::ErrorCapture capture;
            say("Svt[info]: one\nx265 [warning]: tw");
            say("o\r\n\n\"three\"\x01 without an end");
            Cli::ErrorOutput::tell("note", "its own");
        }
        say("later\n");
    });
    std::istringstream lines(text);
    QStringList logs;
    int own = 0;
    for (std::string line; std::getline(lines, line) && line != "later";) {
        const QJsonObject object = QJsonDocument::fromJson(QByteArray::fromStdString(line)).object();
        const QString message = object.value(QStringLiteral("message")).toString();
        if (object.value(QStringLiteral("type")).toString() == QStringLiteral("log"))
            logs << message;
        else
            own += message == QStringLiteral("its own") ? 1 : 0;
    }
    EXPECT_EQ(logs, QStringList({QStringLiteral("Svt[info]: one"), QStringLiteral("x265 [warning]: two"),
                                 QStringLiteral("\"three\"\\x01 without an end")}))
        << text;
    EXPECT_EQ(own, 1);
    EXPECT_NE(text.find("later\n"), std::string::npos) << "standard error is what it was";
}

TEST(ErrorOutput, PutsLinesAboveTheStatus) {
    const std::string text = errorsOf([] {
        Cli::ErrorOutput::showStatus("[##--] 50 %");
        Cli::ErrorOutput::tell("warning", "damage");
        Cli::ErrorOutput::showStatus({});
    });
    const std::string blank = '\r' + std::string(11, ' ') + '\r';
    EXPECT_EQ(text, "\r[##--] 50 %" + blank + "editor-export: warning: damage\n[##--] 50 %" + blank);
}

TEST(ErrorOutput, CoversWhatIsLeftOfALongerStatus) {
    const std::string text = errorsOf([] {
        Cli::ErrorOutput::showStatus("12345");
        Cli::ErrorOutput::showStatus("123");
        Cli::ErrorOutput::showStatus({});
    });
    EXPECT_EQ(text, "\r12345\r123  \r   \r");
}

TEST(ErrorOutput, QuietSaysErrorsAlone) {
    EXPECT_EQ(errorsOf([] {
                  Cli::ErrorOutput::beQuiet();
                  Cli::ErrorOutput::tell("warning", "damage");
                  Cli::ErrorOutput::log("a library");
                  Cli::ErrorOutput::fail("broken");
              }),
              "editor-export: broken\n");
}

} // namespace
