// SPDX-License-Identifier: GPL-3.0-or-later
// Animated WebP files that the engine writes.
#pragma once

#include "Kestra/Conf/IFormatCodecVideo.h"
#include "Kestra/Proc/ProcException.h"
#include "Kestra/Proc/ProcessingError.h"
#include "fakes/streams/ExportDriver.h"
#include "fakes/streams/ScratchFolder.h"
#include "fakes/streams/SyntheticVideo.h"
#include "support/AnimatedWebP.h"
#include <array>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <vector>

namespace WebPTest {

struct Colour {
    int blue, green, red, alpha;
};

inline void Fill(AVFrame& frame, const Colour& colour) {
    const std::array<int, 4> values{colour.blue, colour.green, colour.red, colour.alpha};
    for (int y = 0; y < frame.height; ++y)
        for (int at = 0; at < 4 * frame.width; ++at)
            frame.data[0][y * frame.linesize[0] + at] = static_cast<std::uint8_t>(values[std::size_t(at % 4)]);
}

/// Pictures of blue, green, red and alpha, each of one colour; the last colour stays.
inline Fakes::VideoShape Colours(const std::vector<Colour>& colours, int frames, int width = 32, int height = 16) {
    Fakes::VideoShape shape;
    shape.width = width;
    shape.height = height;
    shape.format = AV_PIX_FMT_BGRA;
    shape.frames = frames;
    shape.paint = [colours](AVFrame& frame, int index) {
        Fill(frame, colours[std::min(static_cast<std::size_t>(index), colours.size() - 1)]);
    };
    return shape;
}

inline Kestra::Core::Property Order(const char* pixelFormat) {
    auto description = Fakes::Description("webp");
    description.SetChild(Kestra::Conf::IFormatCodecVideo::TAG_PIXEL_FORMAT, std::string(pixelFormat));
    if (std::string(pixelFormat) == "bgra")
        description.SetChild(Kestra::Conf::IFormatCodec::TAG_PROFILE, std::string("lossless"));
    return description;
}

template <class Action>
Kestra::Proc::ProcessingError Failure(Action action) {
    try {
        action();
    } catch (...) {
        return Kestra::Proc::ProcessingError::MakeProcessingErrorFromException(std::current_exception());
    }
    return Kestra::Proc::ProcessingError(Kestra::Proc::TranscodingError::None, "nothing was thrown");
}

class WebP : public ::testing::Test {
protected:
    TestMedia::AnimatedWebP Written(const Fakes::VideoShape& shape, const char* pixelFormat,
                                    const Kestra::Core::Property& options = Kestra::Core::Property()) const {
        Fakes::WriteFile(path, "webp", {Fakes::VideoEncoder(Fakes::MakeVideo(shape), Order(pixelFormat))}, options);
        return TestMedia::AnimatedWebP::read(path);
    }
    std::vector<char> Bytes() const {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void Write(const std::vector<char>& bytes) const {
        std::ofstream(path, std::ios::binary | std::ios::trunc)
            .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }

    const Fakes::ScratchFolder folder;
    const std::string path = folder.File("out.webp");
};

} // namespace WebPTest
