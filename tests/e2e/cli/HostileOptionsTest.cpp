// SPDX-License-Identifier: GPL-3.0-or-later
// Every option with what nobody means.
#include "Program.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include <QRegularExpression>
#include <gtest/gtest.h>

using TestCli::Program;
using TestCli::Result;
using TestCli::run;

namespace {

QString name(const char* text) {
    return QString::fromUtf8(text);
}

/// The options of a command that take a value, and those that take none, as the program itself lists them.
struct OptionNames {
    std::vector<std::string> valued, flags;
};

OptionNames optionsOf(const std::string& command) {
    OptionNames names;
    const QString help = run({command, "--help"}).output;
    const QRegularExpression row(name("^  (?:-\\w, )?(--[a-z-]+)( [A-Z])?"), QRegularExpression::MultilineOption);
    for (auto match = row.globalMatch(help); match.hasNext();) {
        const QRegularExpressionMatch one = match.next();
        (one.captured(2).isEmpty() ? names.flags : names.valued).push_back(one.captured(1).toStdString());
    }
    return names;
}

class HostileOptions : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        folder = new TestMedia::Folder;
        TestMedia::FlashBeep media;
        media.frames = 5;
        media.samples = 48'000 / 5;
        TestMedia::makeFlashBeep(*folder / "clip.mov", media);
    }
    static void TearDownTestSuite() { delete folder; }

    /// A word that every option has to refuse or can do with: no other end than these, and one error that says why.
    static void expectSaidOrDone(const Result& result, const std::string& what) {
        EXPECT_TRUE(result.ended) << what;
        EXPECT_TRUE(result.code == 0 || result.code == 2) << what << ": " << result.code << result.errors.toStdString();
        if (result.code != 2)
            return;
        const QStringList errors = result.errorLines().filter(QRegularExpression(name("^editor-export: (?!note: )")));
        // What is wrong with a timeline is a result.
        EXPECT_EQ(errors.size() + (result.output.isEmpty() ? 0 : 1), 1) << what << ": " << result.errors.toStdString();
        EXPECT_FALSE(result.errors.contains(QRegularExpression(name("std::|terminate|basic_string"))))
            << what << ": " << result.errors.toStdString();
    }

    /// What an option names as a file lies, if it is made, in a folder of its own.
    Result runOdd(const std::vector<std::string>& arguments, const std::string& option) const {
        Program program(arguments);
        if (option == "--log" || option == "--report" || option == "--media-root")
            program.setWrapper({name("env"), name("-C"), QString::fromStdString(files / "")});
        return program.run();
    }

    static TestMedia::Folder* folder;
    const std::string clip = *folder / "clip.mov";
    const TestMedia::Folder place, files;
};

TestMedia::Folder* HostileOptions::folder = nullptr;

const std::vector<std::string>& oddWords() {
    static const std::vector<std::string> words{
        "",
        "nonsense",
        "-1",
        "--",
        "99999999999999999999999999",
        "\xE2\x80\xAE\xF0\x9F\x8E\xAC",
        std::string(100'000, 'x'),
    };
    return words;
}

class HostileValues : public HostileOptions, public ::testing::WithParamInterface<std::size_t> {};

TEST_P(HostileValues, OfRenderAreRefusedOrDone) {
    const std::string& word = oddWords()[GetParam()];
    const OptionNames names = optionsOf("render");
    ASSERT_GT(names.valued.size(), 15U);
    for (const std::string& option : names.valued) {
        if (option == "--output")
            continue;
        std::vector<std::string> arguments{"render", clip, "-p", "mp4-h264-480p", "-y", "--dry-run"};
        if (option == "--preset")
            arguments.erase(arguments.begin() + 2, arguments.begin() + 4);
        arguments.push_back(option + '=' + word);
        arguments.insert(arguments.end(), {"-o", place / "film.mp4"});
        expectSaidOrDone(runOdd(arguments, option), option + '=' + word.substr(0, 40));
    }
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList());
}

TEST_F(HostileOptions, ThatTakeNoValueRefuseOne) {
    for (const std::string& option : optionsOf("render").flags)
        for (const char* const value : {"=nonsense", "="}) {
            const Result result =
                run({"render", clip, "-p", "mp4-h264-480p", "-o", place / "film.mp4", option + value});
            EXPECT_EQ(result.code, option == "--help" ? result.code : 2)
                << option << value << result.errors.toStdString();
        }
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList());
}

TEST_P(HostileValues, OfOtherCommandsAreRefusedOrDone) {
    const std::string& word = oddWords()[GetParam()];
    for (const char* command : {"presets", "info", "validate", "queue"})
        for (const std::string& option : optionsOf(command).valued)
            expectSaidOrDone(runOdd({command, option + '=' + word, clip}, option),
                             std::string(command) + ' ' + option + '=' + word.substr(0, 40));
}

INSTANTIATE_TEST_SUITE_P(Words, HostileValues, ::testing::Range(std::size_t{0}, oddWords().size()));

TEST_F(HostileOptions, OfOutputsAreRefusedByName) {
    const auto refusal = [&](const std::string& output) {
        const Result result = run({"render", clip, "-p", "mp4-h264-480p", "-o", output});
        EXPECT_EQ(result.code, 2) << output.substr(0, 40);
        EXPECT_EQ(result.errorLines().size(), 1) << result.errors.toStdString();
        return result.errors;
    };
    const QString standard = refusal("-");
    EXPECT_TRUE(standard.contains(name("standard output is no place for an export")));
    EXPECT_TRUE(standard.contains(name("; name a file, and read that when the export is done")))
        << standard.toStdString();
    EXPECT_TRUE(refusal("").contains(name("--output needs a value, which is empty")));
    EXPECT_TRUE(refusal(place / std::string(300, 'x')).contains(name("File name too long")));
    const QString both = refusal(place / "film.webm");
    EXPECT_TRUE(both.contains(name("\"mp4-h264-480p\" writes .mp4")) && both.contains(name("not .webm")))
        << both.toStdString();
    const Result unnamed = run({"render", clip, "-o", "-"});
    EXPECT_TRUE(unnamed.errors.contains(name("standard output is no place for an export")))
        << unnamed.errors.toStdString();
}

TEST_F(HostileOptions, ThatAreNoneHaveNearNames) {
    const auto refusal = [&](const std::vector<std::string>& more) {
        std::vector<std::string> arguments{"render", clip, "-o", place / "film.mp4"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Result result = run(arguments);
        EXPECT_EQ(result.code, 2);
        return result.errors;
    };
    EXPECT_TRUE(
        refusal({"--qualty", "high"}).contains(name("there is no option \"--qualty\"; did you mean --quality")));
    EXPECT_TRUE(refusal({"--dry-rnu"}).contains(name("did you mean --dry-run?")));
    EXPECT_TRUE(refusal({"--zzzzzzzzzzzz=3"}).contains(name("there is no option \"--zzzzzzzzzzzz\" (see --help)")));
    const Result file = run({"render", *folder / "clpi.mov", "-o", place / "film.mp4"});
    EXPECT_TRUE(file.errors.contains(name("; did you mean \"") + QString::fromStdString(clip) + name("\"?")))
        << file.errors.toStdString();
    EXPECT_EQ(file.code, 2);
}

TEST_F(HostileOptions, ThatAreEmptyOrOfOneLetterHaveNoNearNames) {
    TestFiles::write(place / "fx", "another file");
    Program program({"", "o.mp4", "-p", "mp4-h264-480p"});
    program.setWrapper({name("env"), name("-C"), QString::fromStdString(place / "")});
    const Result result = program.run();
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(result.errors.toStdString(), "editor-export: Cannot read \"\": No such file or directory\n");
    EXPECT_EQ(run({clip, "-p", "b", "-o", place / "o.mp4"}).errors.toStdString(),
              "editor-export: There is no preset \"b\"; presets lists those there are\n");
}

TEST_F(HostileOptions, OfOneLetterHaveNoEqualSignBeforeTheirValue) {
    const auto refusal = [this](const std::vector<std::string>& arguments) {
        Program program(arguments);
        program.setWrapper({name("env"), name("-C"), QString::fromStdString(place / "")});
        const Result result = program.run();
        EXPECT_EQ(result.code, 2) << result.output.toStdString();
        return result.errors;
    };
    EXPECT_EQ(refusal({clip, "-o=out.mp4"}).toStdString(),
              "editor-export: -o takes its value without \"=\": write -o out.mp4 or --output=out.mp4 (see --help)\n");
    EXPECT_TRUE(refusal({clip, "-o", "out.mp4", "-p=web"}).contains(name("write -p web or --preset=web")));
    EXPECT_TRUE(refusal({clip, "-qyo=out.mp4"}).contains(name("write -o out.mp4")));
    EXPECT_TRUE(refusal({clip, "-o="}).contains(name("-o needs a value, which is empty")));
    EXPECT_TRUE(refusal({"presets", "export", "mp3", "-o=mine.json"}).contains(name("write -o mine.json")));
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList());
    EXPECT_EQ(run({clip, "-o", place / "=odd.mp4"}).code, 0);
    EXPECT_EQ(run({clip, "-o" + (place / "close.mp4")}).code, 0);
}

} // namespace
