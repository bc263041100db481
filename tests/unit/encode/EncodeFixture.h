// SPDX-License-Identifier: GPL-3.0-or-later
// What the encoder tests share.
#pragma once

#include "Kestra/Base/Time.h"
#include "Kestra/Proc/ProcessingError.h"
#include "fakes/streams/DecodedFile.h"
#include "fakes/streams/ExportDriver.h"
#include "fakes/streams/ScratchFolder.h"
#include "fakes/streams/SyntheticAudio.h"
#include "fakes/streams/SyntheticVideo.h"
#include <gtest/gtest.h>

namespace EncodeTest {

/// What `action` throws, as a user is told of it; code None when it throws nothing.
template <class Action>
Kestra::Proc::ProcessingError Failure(Action action) {
    try {
        action();
    } catch (...) {
        return Kestra::Proc::ProcessingError::MakeProcessingErrorFromException(std::current_exception());
    }
    return Kestra::Proc::ProcessingError(Kestra::Proc::TranscodingError::None, "nothing was thrown");
}

/// A lossless file of what the encoder makes of these pictures, decoded.
inline Fakes::DecodedFile Lossless(Fakes::VideoShape shape, const char* pixelFormat = "yuv420p",
                                   const char* codec = "ffv1") {
    const Fakes::ScratchFolder folder;
    auto description = Fakes::Description(codec);
    description.SetChild(Kestra::Conf::IFormatCodecVideo::TAG_PIXEL_FORMAT, std::string(pixelFormat));
    const std::string path = folder.File("out.mkv");
    Fakes::WriteFile(path, "mkv", {Fakes::VideoEncoder(Fakes::MakeVideo(std::move(shape)), description)});
    return Fakes::Decode(path);
}

} // namespace EncodeTest
