// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/PrivateName.h"
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

using ExportCore::PrivateName;

namespace {

TEST(PrivateName, TellsItsProcess) {
    const auto name = PrivateName::read(PrivateName::make("mp4"));
    ASSERT_TRUE(name);
    EXPECT_EQ(name->process, getpid());
    EXPECT_TRUE(name->isAlive());
}

TEST(PrivateName, IsHiddenUniqueAndKeepsTheExtension) {
    const QByteArray first = PrivateName::make("mp4"), second = PrivateName::make("mp4");
    EXPECT_NE(first, second);
    EXPECT_TRUE(first.startsWith('.'));
    EXPECT_TRUE(first.endsWith(".mp4"));
    EXPECT_FALSE(PrivateName::make(QByteArray()).endsWith('.'));
}

TEST(PrivateName, AnotherStartTimeIsAnotherProcess) {
    auto name = *PrivateName::read(PrivateName::make("mp4"));
    ++name.processStart;
    EXPECT_FALSE(name.isAlive());
}

TEST(PrivateName, ADeadProcessIsNotAlive) {
    const pid_t child = fork();
    if (child == 0)
        _exit(0);
    ASSERT_GT(child, 0);
    ASSERT_EQ(waitpid(child, nullptr, 0), child);
    PrivateName name;
    name.process = child;
    name.processStart = 1;
    EXPECT_FALSE(name.isAlive());
}

TEST(PrivateName, ReadsNothingButTheVeryNameThatWasMade) {
    const QByteArray name = PrivateName::make("mp4");
    ASSERT_TRUE(PrivateName::read(name));
    for (const char* more : {".bak", "~", " "})
        EXPECT_TRUE(!PrivateName::read(more + name)) << more;
    EXPECT_FALSE(
        PrivateName::read(QByteArray(name).replace("-0-", "-00-").replace(".editor-export-", ".editor-export-0")));
    for (int at = 0; at < name.lastIndexOf('.'); ++at) {
        QByteArray other = name;
        other[at] = other[at] == '1' ? '2' : '1';
        EXPECT_FALSE(PrivateName::read(other)) << other.constData();
    }
}

TEST(PrivateName, DoesNotReadForeignNames) {
    for (const char* name : {"film.mp4", ".editor-export-", ".editor-export-1-2.mp4", ".editor-export-1-2-x.mp4",
                             ".editor-export-1-2-3-4.mp4", ".editor-export--1-2-3.mp4", ".editor-export-0-2-3.mp4",
                             ".editor-exports-1-2-3.mp4", "editor-export-1-2-3.mp4", ".editor-export-a-b-c"})
        EXPECT_FALSE(PrivateName::read(name)) << name;
}

} // namespace
