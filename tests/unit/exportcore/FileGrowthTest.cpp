// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/FileGrowth.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include "support/WaitUntil.h"
#include <gtest/gtest.h>

using ExportCore::FileGrowth;

namespace {

TEST(FileGrowth, IsUnknownWhileNothingHasBeenWritten) {
    const TestMedia::Folder folder;
    const std::string begun = folder / "begun.webm", grown = folder / "grown.webm";
    TestFiles::write(begun, "");
    TestFiles::write(grown, "12345");
    FileGrowth empty(QByteArray::fromStdString(begun)), written(QByteArray::fromStdString(grown));
    EXPECT_EQ(empty.bytes(), -1);
    EXPECT_TRUE(TestSupport::waitUntil([&] { return written.bytes() == 5; }));
    EXPECT_EQ(empty.bytes(), -1) << "it was looked at before the other one";
}

} // namespace
