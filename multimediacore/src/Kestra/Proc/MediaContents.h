// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::MediaContents: what a media file lists of itself.
#pragma once

#include "Kestra/Conf/FrameInfo.h"
#include "Kestra/Conf/ProgrammeInfo.h"
#include <boost/rational.hpp>
#include <string>
#include <vector>

namespace Kestra::Proc {

/// One track, as the file claims it to be. A value.
struct ListedTrack {
    enum class Kind { Picture, Sound, Subtitles, Cover, Chapters, Attachment, Data, TimeCode };

    int index = -1; ///< among the container's streams
    Kind kind = Kind::Data;
    std::string codec;    ///< as the decoder library names it
    std::string language; ///< as the file tells it; empty where it does not
    std::string title;
    bool isDefault = false;
    bool forced = false;
    Conf::FrameInfo frame;                ///< of pictures and covers
    boost::rational<long long> frameRate; ///< of pictures; 0 when unknown
    int sampleRate = 0;                   ///< of sound, as what follows
    int channels = 0;
    std::string channelLayout; ///< as the decoder library names it: "stereo", "5.1(side)"
    bool isText = false;       ///< subtitles that ReadSubtitles() reads
};

/// A value.
struct MediaContents {
    std::vector<ListedTrack> tracks; ///< by their index
    /// Title, tags, chapters and cover; times count from the media's time 0. Tags that speak of the file rather than of
    /// its programme (who encoded it, its brand, statistics) are not among them.
    Conf::ProgrammeInfo programme;
};

} // namespace Kestra::Proc
