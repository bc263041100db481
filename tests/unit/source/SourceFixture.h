// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of media sources share.
#pragma once

#include "Kestra/Base/Time.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/ISourceFactory.h"
#include "Kestra/Proc/ProcException.h"
#include "unit/source/NumberedMedia.h"
#include <gtest/gtest.h>

namespace TestMedia {

using boost::intrusive_ptr;
using Kestra::FramesToTime;
using Kestra::ioPath;
using Kestra::TIME_BASE;
using Kestra::TimeToSamples;
using Kestra::Proc::IMediaSource;
using Kestra::Proc::IStreamAudio;
using Kestra::Proc::IStreamVideo;
using Kestra::Proc::SeekMode;
using Rate = boost::rational<long long>;

inline intrusive_ptr<IMediaSource> open(const std::string& path) {
    return Kestra::Core::CoreManager::Instance().GetSourceFactory().OpenMedia(ioPath(path));
}
inline intrusive_ptr<IMediaSource> openWith(const std::string& path, const Kestra::Proc::TrackChoice& choice) {
    return Kestra::Core::CoreManager::Instance().GetSourceFactory().OpenMedia(ioPath(path), nullptr, {}, choice);
}

class SourceTest : public testing::Test {
protected:
    /// Runs ffmpeg with the arguments and the path of `name` in the test's folder, which it returns.
    std::string make(const std::string& name, std::vector<std::string> arguments) {
        arguments.push_back(folder / name);
        runFfmpeg(arguments);
        return folder / name;
    }
    static std::vector<std::string> pictures(const std::string& rate, int frames) {
        return {"-f", "lavfi", "-i", numberedPictures(rate, frames)};
    }
    static std::vector<std::string> join(std::vector<std::string> a, const std::vector<std::string>& b) {
        a.insert(a.end(), b.begin(), b.end());
        return a;
    }

    Folder folder;
};

} // namespace TestMedia
