// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of tracks and of what a file says of itself share.
#pragma once

#include "Program.h"
#include "support/Described.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include <gtest/gtest.h>

namespace TestCli {

/// Small clips of two seconds.
class TracksTest : public ::testing::Test {
protected:
    static std::vector<std::string> pictures() { return {"-f", "lavfi", "-i", "color=gray:s=64x64:r=25:d=2"}; }
    /// A tone of so many Hz.
    static std::vector<std::string> tone(int frequency) {
        return {"-f", "lavfi", "-i", "sine=f=" + std::to_string(frequency) + ":r=48000:d=2"};
    }
    static std::vector<std::string> quick() { return {"-c:v", "mpeg4", "-c:a", "pcm_s16le"}; }
    std::string write(const std::string& name, const std::string& content) const {
        TestFiles::write(place / name, QByteArray::fromStdString(content));
        return place / name;
    }
    /// A file of tags and chapters as the ffmpeg program reads it, from such lines.
    std::string tags(const std::string& lines) const { return write("tags", ";FFMETADATA1\n" + lines); }
    static std::string chapter(int startMs, int endMs, const std::string& title) {
        return "[CHAPTER]\nTIMEBASE=1/1000\nSTART=" + std::to_string(startMs) + "\nEND=" + std::to_string(endMs) +
               "\ntitle=" + title + '\n';
    }
    std::string make(const std::string& name, const std::vector<std::vector<std::string>>& arguments) const {
        std::vector<std::string> all;
        for (const auto& some : arguments)
            all.insert(all.end(), some.begin(), some.end());
        all.push_back(place / name);
        TestMedia::runFfmpeg(all);
        return place / name;
    }

    /// Exports, expects that to go well and leaves what was said in `said`.
    TestMedia::DescribedFile render(std::vector<std::string> arguments, const std::string& output) {
        arguments.insert(arguments.begin(), "render");
        for (const std::string& word : {std::string("-o"), place / output, std::string("--overwrite"),
                                        std::string("--progress"), std::string("none")})
            arguments.push_back(word);
        const Result result = run(arguments);
        EXPECT_EQ(result.code, 0) << output << ": " << result.errors.toStdString();
        said = result.errors.toStdString();
        return result.code == 0 ? TestMedia::describe(place / output) : TestMedia::DescribedFile();
    }
    /// What a refusal says.
    static std::string refusal(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "render");
        const Result result = run(arguments);
        EXPECT_EQ(result.code, 2) << result.errors.toStdString();
        return result.errors.toStdString();
    }

    const TestMedia::Folder place;
    std::string said;
};

} // namespace TestCli
