// SPDX-License-Identifier: GPL-3.0-or-later
#include "Program.h"
#include "support/FlashBeep.h"
#include <QRegularExpression>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

using TestCli::Result;
using TestCli::run;

namespace {

class Progress : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        folder = new TestMedia::Folder;
        TestMedia::FlashBeep media;
        media.frames = 500;
        TestMedia::makeFlashBeep(*folder / "clip.mov", media);
    }
    static void TearDownTestSuite() { delete folder; }
    static QString typeOf(const QJsonObject& object) { return object.value(QStringLiteral("type")).toString(); }

    static TestMedia::Folder* folder;
    const std::string clip = *folder / "clip.mov";
    const TestMedia::Folder place;
    const std::string output = place / "film.mp4";
};

TestMedia::Folder* Progress::folder = nullptr;

TEST_F(Progress, JsonIsOneObjectALineFromStartedToDone) {
    const Result result = run({"render", clip, "-p", "mp4-h264-720p", "-o", output, "--progress", "json"});
    ASSERT_EQ(result.code, 0);
    const QList<QJsonObject> events = TestCli::jsonLines(result.errors);
    ASSERT_GE(events.size(), 3);
    EXPECT_EQ(typeOf(events.first()), QStringLiteral("started"));
    EXPECT_EQ(typeOf(events.last()), QStringLiteral("done"));
    int percent = 0;
    for (int i = 1; i + 1 < events.size(); ++i) {
        ASSERT_EQ(typeOf(events[i]), QStringLiteral("progress")) << i;
        const int now = events[i].value(QStringLiteral("percent")).toInt(-1);
        EXPECT_GE(now, percent);
        EXPECT_LE(now, 100);
        percent = now;
    }
    const QJsonObject last = events[events.size() - 2];
    EXPECT_GT(last.value(QStringLiteral("framesPerSecond")).toDouble(), 0);
    EXPECT_GT(last.value(QStringLiteral("speed")).toDouble(), 0);
    EXPECT_TRUE(last.value(QStringLiteral("bytes")).isDouble()) << "written so far";
    EXPECT_EQ(last.value(QStringLiteral("pass")).toInt(), 1);
    EXPECT_EQ(last.value(QStringLiteral("passes")).toInt(), 1);
    const QList<QJsonObject> results = TestCli::jsonLines(result.output);
    ASSERT_EQ(results.size(), 1);
    EXPECT_EQ(results[0].value(QStringLiteral("durationMs")).toInt(), 20'000);
    EXPECT_EQ(results[0].value(QStringLiteral("video")).toObject().value(QStringLiteral("frames")).toInt(), 500);
}

TEST_F(Progress, BytesAreUnknownUntilSomeHaveBeenWritten) {
    const Result result = run({"render", clip, "-p", "webm-vp9-720p", "--out", "2", "-o", place / "film.webm", "--set",
                               "size=64x36", "--progress", "json"});
    ASSERT_EQ(result.code, 0) << result.rawErrors;
    int told = 0;
    for (const QJsonObject& event : TestCli::jsonLines(result.errors))
        if (typeOf(event) == QStringLiteral("progress")) {
            const QJsonValue bytes = event.value(QStringLiteral("bytes"));
            EXPECT_TRUE(bytes.isNull() || bytes.toDouble() > 0) << result.rawErrors;
            ++told;
        }
    EXPECT_GT(told, 0);
}

TEST_F(Progress, JsonTellsRefusals) {
    const Result result = run({"render", clip, "-p", "nonsense-preset-xyz", "-o", output, "--progress", "json"});
    EXPECT_EQ(result.code, 2);
    const QList<QJsonObject> events = TestCli::jsonLines(result.errors);
    ASSERT_EQ(events.size(), 1);
    EXPECT_EQ(typeOf(events[0]), QStringLiteral("refused"));
    EXPECT_TRUE(events[0].value(QStringLiteral("message")).toString().contains(QStringLiteral("nonsense-preset-xyz")));
}

TEST_F(Progress, PlainLinesComeEveryFiveSecondsAtMost) {
    const Result result = run({"render", clip, "-p", "mp4-h264-480p", "-o", output});
    EXPECT_EQ(result.code, 0);
    EXPECT_LE(result.errorLines().size(), 6) << "half a minute of them";
    EXPECT_FALSE(result.errors.contains(QLatin1Char('\r')));
}

TEST_F(Progress, TheBarTellsPercentAndSpeedAndGoesAway) {
    const Result result = run({"render", clip, "-p", "mp4-h264-720p", "-o", output, "--progress", "bar"});
    EXPECT_EQ(result.code, 0);
    const QStringList states = result.errors.split(QLatin1Char('\r'));
    ASSERT_GE(states.size(), 3);
    EXPECT_TRUE(result.errors.contains(QRegularExpression(QStringLiteral("\\[#*-*\\] \\d+ %, \\d+\\.\\d\\dx"))))
        << result.errors.toStdString();
    EXPECT_FALSE(result.errors.contains(QLatin1Char('\n')));
    EXPECT_TRUE(states.last().isEmpty());
}

/// What the program shows on a terminal of its own.
std::string shownOnTerminal(const std::string& clip, const std::string& output, unsigned short columns) {
    int terminal = -1;
    const winsize size{24, columns, 0, 0};
    const pid_t child = forkpty(&terminal, nullptr, nullptr, &size);
    if (child == 0) {
        execl(EDITOR_EXPORT_PROGRAM, EDITOR_EXPORT_PROGRAM, "render", clip.c_str(), "-p", "mp4-h264-480p", "-o",
              output.c_str(), nullptr);
        _exit(99);
    }
    EXPECT_GT(child, 0);
    std::string shown;
    char buffer[4096];
    // A terminal whose last user has gone answers with an error.
    for (ssize_t count = 0; (count = read(terminal, buffer, sizeof buffer)) > 0;)
        shown.append(buffer, static_cast<std::size_t>(count));
    close(terminal);
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(WEXITSTATUS(status), 0);
    return shown;
}

TEST_F(Progress, OnATerminalTheBarComesByItself) {
    const std::string shown = shownOnTerminal(clip, output, 100);
    EXPECT_NE(shown.find("[---"), std::string::npos) << shown;
    EXPECT_NE(shown.find("500 frames"), std::string::npos) << shown;
}

TEST_F(Progress, TheBarStaysOnItsLineHoweverNarrowTheTerminalIs) {
    for (const int columns : {20, 33, 57}) {
        const std::string shown = shownOnTerminal(clip, place / ("film" + std::to_string(columns) + ".mp4"),
                                                  static_cast<unsigned short>(columns));
        const QStringList states = QString::fromStdString(shown).split(QLatin1Char('\r'));
        ASSERT_GE(states.size(), 3);
        for (const QString& state : states) {
            const bool isResult = state.contains(QStringLiteral("500 frames"));
            EXPECT_TRUE(isResult || state.trimmed().size() < columns) << state.toStdString();
        }
        EXPECT_TRUE(shown.find(" %") != std::string::npos) << shown;
    }
}

} // namespace
