// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Core/RemoveFile.h"
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace Kestra::Core {
namespace {

namespace fs = std::filesystem;

class RemoveFileTest : public testing::Test {
protected:
    RemoveFileTest() {
        std::string pattern = (fs::temp_directory_path() / "remove-file-XXXXXX").string();
        folder = mkdtemp(pattern.data());
    }
    ~RemoveFileTest() override {
        std::error_code ignored;
        fs::remove_all(folder, ignored);
    }

    fs::path MakeFile(const char* name) const {
        std::ofstream(folder / name) << "contents";
        return folder / name;
    }

    fs::path folder;
};

TEST_F(RemoveFileTest, DeletesARegularFile) {
    const fs::path file = MakeFile("m\xC3\xBCsik.mp4");
    EXPECT_TRUE(RemoveFile(ioPath(file.string())));
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(RemoveFileTest, SaysFalseWhenThereIsNothing) {
    EXPECT_FALSE(RemoveFile(ioPath((folder / "absent").string())));
    EXPECT_FALSE(RemoveFile(ioPath()));
}

TEST_F(RemoveFileTest, LeavesALinkAndItsTarget) {
    const fs::path file = MakeFile("target.mp4");
    fs::create_symlink(file, folder / "link.mp4");
    EXPECT_FALSE(RemoveFile(ioPath((folder / "link.mp4").string())));
    EXPECT_TRUE(fs::is_symlink(folder / "link.mp4"));
    EXPECT_TRUE(fs::exists(file));
}

TEST_F(RemoveFileTest, LeavesAFolder) {
    fs::create_directory(folder / "empty");
    EXPECT_FALSE(RemoveFile(ioPath((folder / "empty").string())));
    EXPECT_TRUE(fs::exists(folder / "empty"));
}

TEST_F(RemoveFileTest, LeavesAFifo) {
    const fs::path fifo = folder / "fifo";
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    EXPECT_FALSE(RemoveFile(ioPath(fifo.string())));
    EXPECT_TRUE(fs::exists(fifo));
}

} // namespace
} // namespace Kestra::Core
