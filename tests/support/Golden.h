// SPDX-License-Identifier: GPL-3.0-or-later
// TestSupport::compareWithGolden: texts that are kept, and compared with what comes out.
#pragma once

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

namespace TestSupport {

/// The text that is kept at `path`, to be compared with `text`. With EDITOREXPORT_REFRESH_GOLDENS set
/// (scripts/refresh-goldens sets it) `text` is written there first. A file that cannot be read is empty.
inline std::string keptText(const std::string& path, const std::string& text) {
    if (std::getenv("EDITOREXPORT_REFRESH_GOLDENS")) {
        std::ofstream file(path, std::ios::binary);
        file << text;
        EXPECT_TRUE(file.flush()) << "cannot write " << path;
    }
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path << " is missing; scripts/refresh-goldens makes it";
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Compares `text` with the text that is kept at `path`.
inline void compareWithGolden(const std::string& path, const std::string& text) {
    EXPECT_EQ(text, keptText(path, text)) << "if the change is meant: scripts/refresh-goldens";
}

} // namespace TestSupport
