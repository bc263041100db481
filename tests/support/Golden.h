// TestSupport::compareWithGolden: texts that are kept, and compared with what comes out.
#pragma once

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

namespace TestSupport {

/// Compares `text` with the file at `path`. With EDITOREXPORT_REFRESH_GOLDENS set (scripts/refresh-goldens sets it) it
/// writes the file instead.
inline void compareWithGolden(const std::string& path, const std::string& text) {
    if (std::getenv("EDITOREXPORT_REFRESH_GOLDENS")) {
        std::ofstream file(path, std::ios::binary);
        file << text;
        ASSERT_TRUE(file.flush()) << "cannot write " << path;
        return;
    }
    std::ifstream file(path, std::ios::binary);
    ASSERT_TRUE(file) << path << " is missing; scripts/refresh-goldens makes it";
    const std::string kept{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    EXPECT_EQ(text, kept) << "if the change is meant: scripts/refresh-goldens";
}

} // namespace TestSupport
