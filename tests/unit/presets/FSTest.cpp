// SPDX-License-Identifier: GPL-3.0-or-later
#include "FileSystem/FS.h"
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

QString text(const char* latin1) {
    return QString::fromLatin1(latin1);
}

std::string joined(std::initializer_list<const char*> components, const char* extension = "") {
    QString path;
    for (const char* const component : components)
        path = FS::joinPath({path, text(component)});
    return FS::joinPath({path}, text(extension)).toStdString();
}

} // namespace

TEST(JoinPath, PutsOneSlashBetweenComponents) {
    EXPECT_EQ(joined({"/tmp/run", "two_pass"}), "/tmp/run/two_pass");
    EXPECT_EQ(joined({"/tmp/run/", "/two_pass"}), "/tmp/run/two_pass");
    EXPECT_EQ(joined({"/", "tmp"}), "/tmp");
    EXPECT_EQ(FS::joinPath({text("a"), text("b"), text("c")}), text("a/b/c"));
}

TEST(JoinPath, LeavesEmptyComponentsOut) {
    EXPECT_EQ(FS::joinPath({QString(), text("a"), QString(), text("b"), QString()}), text("a/b"));
    EXPECT_EQ(FS::joinPath({}), QString());
    EXPECT_EQ(FS::joinPath({}, text("log")), QString());
}

TEST(JoinPath, GivesTheLastComponentTheExtension) {
    EXPECT_EQ(joined({"dir", "17"}, "log"), "dir/17.log");
    EXPECT_EQ(joined({"dir", "17"}, ".log"), "dir/17.log");
    EXPECT_EQ(joined({"dir", "17.2"}, "log"), "dir/17.2.log");
    EXPECT_EQ(joined({"dir", "17"}, ""), "dir/17");
}

TEST(MakePath, MakesAllFoldersAndIsContentWithThoseThatStand) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(text("a/b/c"));
    EXPECT_TRUE(FS::makePath(path));
    EXPECT_TRUE(QFileInfo(path).isDir());
    EXPECT_TRUE(FS::makePath(path));
}

TEST(MakePath, SaysWhenAFileIsInTheWay) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(text("file"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_FALSE(FS::makePath(path + text("/below")));
    EXPECT_FALSE(FS::makePath(QString()));
}
