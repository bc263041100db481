// SPDX-License-Identifier: GPL-3.0-or-later
// What the program loads for what it is asked to do.
#include "Program.h"
#include "support/FlashBeep.h"
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <gtest/gtest.h>

using TestCli::Program;
using TestCli::Result;

namespace {

/// For what the dynamic linker looks at, which it does as a process begins.
QStringList inEnvironment(const std::string& variable) {
    return {QStringLiteral("/usr/bin/env"), QString::fromStdString(variable)};
}

/// What the dynamic linker says that it has opened.
QString libraries(const std::vector<std::string>& arguments) {
    Program program(arguments);
    program.setWrapper(inEnvironment("LD_DEBUG=files"));
    const Result result = program.run();
    EXPECT_EQ(result.code, 0) << result.errors.right(2000).toStdString();
    EXPECT_TRUE(result.errors.contains(QStringLiteral("libKestra.so"))) << "the dynamic linker tells nothing";
    return result.errors;
}

bool namesCodecs(const QString& told) {
    return told.contains(QStringLiteral("libavcodec.so"));
}

TEST(Loading, LoadsNoCodecsToHelpOrToList) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"--help"}, {"--describe=man"}, {"presets"}, {"presets", "--json"}})
        EXPECT_FALSE(namesCodecs(libraries(arguments))) << arguments.front();
}

TEST(Loading, LoadsCodecsForMedia) {
    const TestMedia::Folder folder;
    const std::string media = folder / "in.mov";
    TestMedia::makeFlashBeep(media, TestMedia::FlashBeep());
    EXPECT_TRUE(namesCodecs(libraries({"info", media})));
    EXPECT_TRUE(namesCodecs(libraries({"--version"}))) << "whose versions it tells";
}

/// Beside its own library the engine's codecs are missing, as after half an installation.
TEST(Loading, WithoutItsCodecsListsAndSaysWhatIsMissing) {
    const TestMedia::Folder folder;
    const QString library = QFileInfo(QStringLiteral(KESTRA_LIBRARY)).canonicalFilePath();
    ASSERT_TRUE(QFile::copy(library, QString::fromStdString(folder / KESTRA_SONAME)));
    const std::string elsewhere = folder / "";
    Program list({"presets"});
    list.setWrapper(inEnvironment("LD_LIBRARY_PATH=" + elsewhere));
    EXPECT_EQ(list.run().code, 0);

    const std::string media = folder / "in.mov";
    TestMedia::makeFlashBeep(media, TestMedia::FlashBeep());
    const std::string output = folder / "out.mp4";
    Program render({"render", media, "-p", "mp4-h264-1080p", "-o", output});
    render.setWrapper(inEnvironment("LD_LIBRARY_PATH=" + elsewhere));
    const Result result = render.run();
    EXPECT_NE(result.code, 0);
    EXPECT_TRUE(result.errors.contains(QStringLiteral("Cannot load the engine's codecs")))
        << result.errors.toStdString();
    EXPECT_TRUE(result.errors.contains(QString::fromStdString(elsewhere))) << result.errors.toStdString();
    EXPECT_FALSE(QFile::exists(QString::fromStdString(output)));
}

/// The engine's codecs become those of another build of the same version, as they name themselves.
void takeFromAnotherBuild(QByteArray& codecs) {
    const QRegularExpression build(QStringLiteral("\\d+\\.\\d+\\.\\d+ [0-9a-f]{64}"));
    const auto found = build.match(QString::fromLatin1(codecs.constData(), codecs.size()));
    ASSERT_TRUE(found.hasMatch()) << "the codecs do not say of which build they are";
    char& last = codecs.data()[found.capturedEnd() - 1];
    last = last == '0' ? '1' : '0';
}

void write(const std::string& path, const QByteArray& bytes) {
    QFile file(QString::fromStdString(path));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

/// As where an update has put other codecs in the place of those that a program has not loaded yet.
TEST(Loading, TakesNoCodecsOfAnotherBuild) {
    const TestMedia::Folder folder;
    ASSERT_TRUE(QFile::copy(QFileInfo(QStringLiteral(KESTRA_LIBRARY)).canonicalFilePath(),
                            QString::fromStdString(folder / KESTRA_SONAME)));
    const std::string place = folder / QString(QStringLiteral(KESTRA_SONAME))
                                           .replace(QStringLiteral("Kestra.so"), QStringLiteral("KestraFF.so"))
                                           .toStdString();
    QFile own(QStringLiteral(KESTRA_CODECS));
    ASSERT_TRUE(own.open(QIODevice::ReadOnly));
    QByteArray codecs = own.readAll();
    const std::string media = folder / "in.mov";
    TestMedia::makeFlashBeep(media, TestMedia::FlashBeep());
    Program info({"info", media});
    info.setWrapper(inEnvironment("LD_LIBRARY_PATH=" + folder / ""));

    write(place, codecs);
    EXPECT_EQ(info.run().code, 0);

    takeFromAnotherBuild(codecs);
    write(place, codecs);
    const Result result = info.run();
    EXPECT_EQ(result.code, 2);
    EXPECT_TRUE(result.errors.contains(QStringLiteral("codecs: "))) << result.errors.toStdString();
    EXPECT_TRUE(result.errors.contains(QStringLiteral("KestraFF.so"))) << result.errors.toStdString();
    EXPECT_TRUE(result.errors.contains(QStringLiteral(" is of another build"))) << result.errors.toStdString();
}

} // namespace
