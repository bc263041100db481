// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/FolderSteps.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include <cerrno>
#include <fcntl.h>
#include <gtest/gtest.h>

using ExportCore::FolderSteps;

namespace {

TEST(FolderStep, APlaceholderIsReplacedAndNothingElseIs) {
    const TestMedia::Folder folder;
    const std::string made = folder / "made", place = folder / "place";
    const auto move = [&] { return FolderSteps::moveOntoPlaceholder(AT_FDCWD, made.c_str(), AT_FDCWD, place.c_str()); };
    EXPECT_EQ(move(), ENOENT);
    EXPECT_TRUE(TestFiles::namesIn(folder / "").isEmpty()) << "it goes where nothing takes its place";
    TestFiles::write(made, "new");
    EXPECT_EQ(move(), 0);
    EXPECT_EQ(TestFiles::namesIn(folder / ""), QStringList(QStringLiteral("place")));
    TestFiles::write(made, "newer");
    EXPECT_EQ(move(), EEXIST);
    EXPECT_EQ(TestFiles::read(place), "new");
    EXPECT_EQ(TestFiles::read(made), "newer");
}

} // namespace
