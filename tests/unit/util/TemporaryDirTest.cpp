// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Util/TemporaryDir.h"
#include "Kestra/Base/FolderInUse.h"
#include "Kestra/Proc/ProcException.h"
#include "support/TemporaryPlace.h"
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <boost/exception/get_error_info.hpp>
#include <gtest/gtest.h>
#include <memory>

using Kestra::Util::TemporaryDir;
using TestSupport::TemporaryPlace;

namespace {

void makeFile(const QString& path) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("content");
}

} // namespace

TEST(TemporaryDir, StandsUnderTheSystemsTemporaryDirectory) {
    const TemporaryDir directory;
    const QFileInfo info(directory.path());
    EXPECT_TRUE(info.isDir());
    EXPECT_TRUE(info.isAbsolute());
    EXPECT_EQ(info.dir().canonicalPath(), QDir(QDir::tempPath()).canonicalPath());
}

TEST(TemporaryDir, IsOpenToItsUserAlone) {
    const TemporaryDir directory;
    const auto others = QFileDevice::ReadGroup | QFileDevice::WriteGroup | QFileDevice::ExeGroup |
                        QFileDevice::ReadOther | QFileDevice::WriteOther | QFileDevice::ExeOther;
    EXPECT_EQ(QFileInfo(directory.path()).permissions() & others, QFileDevice::Permissions());
}

TEST(TemporaryDir, IsAnotherForEachObject) {
    const TemporaryDir first;
    const TemporaryDir second;
    EXPECT_NE(first.path(), second.path());
}

TEST(TemporaryDir, GoesWithItsContent) {
    auto directory = std::make_unique<TemporaryDir>();
    const QString path = directory->path();
    ASSERT_TRUE(QDir(path).mkpath(QStringLiteral("below/deeper")));
    makeFile(path + QStringLiteral("/file"));
    makeFile(path + QStringLiteral("/below/deeper/file"));
    directory.reset();
    EXPECT_FALSE(QFileInfo::exists(path));
}

TEST(TemporaryDir, GoesWithItsContentBeforeAnEndOnTheSpot) {
    const TemporaryDir elsewhere;
    const QTemporaryDir spared;
    makeFile(spared.filePath(QStringLiteral("file")));
    { const TemporaryDir gone; }
    const TemporaryDir directory;
    const QString path = directory.path();
    ASSERT_TRUE(QDir(path).mkpath(QStringLiteral("below/deeper")));
    ASSERT_TRUE(QFile::link(spared.path(), path + QStringLiteral("/below/link")));
    for (int i = 0; i < 300; ++i)
        makeFile(path + QStringLiteral("/below/deeper/a file of some length ") + QString::number(i));
    Kestra::Util::RemovalOnTheSpot::removeAll();
    EXPECT_FALSE(QFileInfo::exists(path));
    EXPECT_FALSE(QFileInfo::exists(elsewhere.path()));
    EXPECT_TRUE(QFileInfo::exists(spared.filePath(QStringLiteral("file"))));
}

TEST(TemporaryDir, StaysUntilNobodyOpensWhatStandsInIt) {
    auto directory = std::make_unique<TemporaryDir>();
    const QString path = directory->path();
    ASSERT_TRUE(QDir(path).mkpath(QStringLiteral("below")));
    makeFile(path + QStringLiteral("/below/file"));
    {
        const Kestra::FolderInUse use(path.toStdString() + "/below/file");
        directory.reset();
        EXPECT_TRUE(QFileInfo::exists(path + QStringLiteral("/below/file")));
    }
    EXPECT_FALSE(QFileInfo::exists(path));
}

TEST(TemporaryDir, GoesBeforeAnEndOnTheSpotWhenItHasOnlyStayedForAUse) {
    auto directory = std::make_unique<TemporaryDir>();
    const QString path = directory->path();
    const Kestra::FolderInUse use(path.toStdString() + "/file");
    directory.reset();
    ASSERT_TRUE(QFileInfo::exists(path));
    Kestra::Util::RemovalOnTheSpot::removeAll();
    EXPECT_FALSE(QFileInfo::exists(path));
}

TEST(TemporaryDir, StandsInTheUsualPlaceWhereTheNamedOneIsMissing) {
    const TemporaryDir around;
    const TemporaryPlace elsewhere(around.path() + QStringLiteral("/missing"));
    const TemporaryDir directory;
    EXPECT_EQ(QFileInfo(directory.path()).dir().path(), QStringLiteral("/tmp"));
}

TEST(TemporaryDir, ThrowsWithPathAndReasonWhereItCannotBeMade) {
    const TemporaryDir around;
    const QString place = around.path() + QStringLiteral("/file");
    makeFile(place);
    const TemporaryPlace elsewhere(place);
    try {
        const TemporaryDir directory;
        FAIL() << "made in what is no directory";
    } catch (const Kestra::Proc::ProcException& exception) {
        const std::string what = exception.what();
        const int* const code = boost::get_error_info<Kestra::TagErrorCode>(exception);
        ASSERT_TRUE(code);
        EXPECT_EQ(*code, static_cast<int>(Kestra::Proc::TranscodingError::OutputNotWritable));
        EXPECT_NE(what.find(place.toStdString()), std::string::npos) << what;
        EXPECT_NE(what.find("Not a directory"), std::string::npos) << what;
    }
}
