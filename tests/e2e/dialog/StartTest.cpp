// SPDX-License-Identifier: GPL-3.0-or-later
// The program itself: on a screen of its own, and without one.
#include "XServer.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include "support/WaitUntil.h"
#include <QElapsedTimer>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <memory>

namespace TestDialog {
namespace {

constexpr int DEADLINE = 200'000;

QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

class Program {
public:
    explicit Program(const QString& display) {
        // Who runs the tests in the background may ignore these, and a program that is told to ignore them does so.
        for (const int number : {SIGINT, SIGHUP, SIGTERM})
            std::signal(number, SIG_DFL);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY"})
            environment.remove(QString::fromLatin1(name));
        if (!display.isEmpty())
            environment.insert(text("DISPLAY"), display);
        environment.insert(text("QT_QPA_PLATFORM"), text("xcb"));
        environment.insert(text("LC_ALL"), text("C.UTF-8"));
        environment.insert(text("XDG_CONFIG_HOME"), home.path());
        environment.insert(text("XDG_RUNTIME_DIR"), home.path());
        for (const char* const bus : {"DBUS_SESSION_BUS_ADDRESS", "DBUS_SYSTEM_BUS_ADDRESS"})
            environment.insert(QString::fromLatin1(bus), text("unix:path=/nonexistent/bus"));
        process.setProcessEnvironment(environment);
    }
    /// Ends whatever did not end.
    ~Program() {
        process.kill();
        process.waitForFinished(DEADLINE);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    void start(const QStringList& arguments) { process.start(text(EDITOR_EXPORT_DIALOG_PROGRAM), arguments); }
    void signal(int number) const { ::kill(static_cast<pid_t>(process.processId()), number); }
    /// What it exits with; -1 where it crashed, or did not end.
    int code() {
        const bool ended = process.state() == QProcess::NotRunning || process.waitForFinished(DEADLINE);
        return ended && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }
    QString output() { return QString::fromUtf8(process.readAllStandardOutput()); }
    QString errors() { return QString::fromUtf8(process.readAllStandardError()); }

private:
    const QTemporaryDir home;
    QProcess process;
};

class StartedProgram : public ::testing::Test {
protected:
    void SetUp() override {
        if (!XServer::isInstalled())
            GTEST_SKIP() << "Xvfb is not installed (scripts/setup test)";
        server = std::make_unique<XServer>();
        ASSERT_FALSE(server->display().isEmpty()) << "Xvfb does not start";
        TestMedia::FlashBeep media;
        media.frames = 50;
        TestMedia::makeFlashBeep(clip, media);
    }
    template <class Condition>
    static bool waitUntil(Condition condition) {
        return TestSupport::waitUntil(condition, DEADLINE);
    }
    QStringList names() const { return TestFiles::namesIn(place / ""); }

    const TestMedia::Folder place;
    const std::string clip = place / "clip.mov";
    std::unique_ptr<XServer> server;
};

TEST_F(StartedProgram, ShowsItsWindowAndEndsWithASignal) {
    for (const int number : {SIGTERM, SIGINT}) {
        Program program(server->display());
        program.start({QString::fromStdString(clip)});
        ASSERT_TRUE(waitUntil([&] { return server->title() == text("Export"); })) << program.errors().toStdString();
        program.signal(number);
        EXPECT_EQ(program.code(), 128 + number);
        EXPECT_EQ(program.errors().toStdString(), "");
    }
}

TEST_F(StartedProgram, EndsAnExportWithASignalAndLeavesNothing) {
    QStringList much;
    for (int i = 0; i < 200; ++i)
        much << QString::fromStdString(clip);
    Program program(server->display());
    program.start(much);
    // It takes the order once it has opened everything.
    QElapsedTimer pressed;
    ASSERT_TRUE(waitUntil([&] {
        const QString title = server->title();
        if (title == text("Export") && (!pressed.isValid() || pressed.elapsed() > 100)) {
            server->pressWithAlt('x');
            pressed.start();
        }
        return title.contains(text("clip.mp4"));
    }));
    ASSERT_TRUE(waitUntil([&] { return names().size() == 2; })) << "the unfinished file";
    program.signal(SIGTERM);
    EXPECT_EQ(program.code(), 128 + SIGTERM);
    EXPECT_EQ(program.errors().toStdString(), "");
    EXPECT_EQ(names(), QStringList(text("clip.mov")));
}

TEST(Program, TellsHelpAndVersionWithoutADisplay) {
    for (const char* const question : {"--help", "-h", "--version", "-v"}) {
        Program program((QString()));
        program.start({text(question)});
        EXPECT_EQ(program.code(), 0) << question;
        EXPECT_EQ(program.errors().toStdString(), "");
        const QString output = program.output();
        const bool isHelp = QByteArray(question).contains('h');
        EXPECT_EQ(output.startsWith(text("Usage: ")), isHelp) << output.toStdString();
        EXPECT_EQ(output == text("editor-export-dialog " EDITOREXPORT_VERSION "\n"), !isHelp) << output.toStdString();
        EXPECT_EQ(output.contains(text("one timeline")), isHelp);
    }
}

TEST(Program, HasAPageThatTellsEveryOptionAndHasNoFault) {
    Program program((QString()));
    program.start({text("--help")});
    ASSERT_EQ(program.code(), 0);
    const QString page = QString::fromUtf8(TestFiles::read(EDITOR_EXPORT_DIALOG_PAGE)).replace(text("\\-"), text("-"));
    const QRegularExpression option(text("--?[a-z]+"));
    int count = 0;
    for (auto found = option.globalMatch(program.output().section(text("Options:"), 1)); found.hasNext(); ++count) {
        const QString name = found.next().captured();
        EXPECT_TRUE(page.contains(name)) << name.toStdString();
    }
    EXPECT_GE(count, 4);
    QProcess groff;
    groff.start(text("groff"),
                {text("-man"), text("-Tutf8"), text("-ww"), text("-z"), text(EDITOR_EXPORT_DIALOG_PAGE)});
    ASSERT_TRUE(groff.waitForFinished(DEADLINE));
    EXPECT_EQ(groff.exitCode(), 0);
    EXPECT_EQ(groff.readAllStandardError().toStdString(), "");
}

TEST(Program, TakesAFileThatIsCalledHelpForAFile) {
    Program program((QString()));
    program.start({text("--"), text("--help")});
    EXPECT_EQ(program.code(), 2);
    EXPECT_TRUE(program.errors().contains(text("no window can be shown")));
}

TEST_F(StartedProgram, RefusesAnOptionThatIsNone) {
    Program program(server->display());
    program.start({text("--nonsense")});
    EXPECT_EQ(program.code(), 2);
    const QString errors = program.errors();
    EXPECT_TRUE(errors.startsWith(text("editor-export-dialog: "))) << errors.toStdString();
    EXPECT_TRUE(errors.contains(text("nonsense"))) << errors.toStdString();
    EXPECT_EQ(errors.count(QLatin1Char('\n')), 1) << errors.toStdString();
}

} // namespace
} // namespace TestDialog
