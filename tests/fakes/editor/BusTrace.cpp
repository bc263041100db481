// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/editor/BusTrace.h"

namespace EditorFakes {

namespace {

std::string flag(const char* name, bool set) {
    return std::string(set ? "+" : "-") + name;
}

template <class Object>
std::string streamState(const Object& stream) {
    return flag("source", stream.source != nullptr) + ' ' + flag("using", stream.using_) + ' ' +
           flag("impl", stream.impl != nullptr) + ' ' + flag("available", stream.available) + ' ' +
           std::to_string(stream.range.start.count()) + ".." + std::to_string(stream.range.end.count()) + " ms";
}

std::string compositionState(const Composition::Object& composition) {
    return std::to_string(composition.exportedVideos().size()) + " video and " +
           std::to_string(composition.exportedAudios().size()) + " audio exports";
}

std::string fastTrackState(const FastTrack::Object& fastTrack) {
    return flag("active", fastTrack.active()) + ' ' + flag("suppressed", fastTrack.isSuppressed());
}

} // namespace

BusTrace::BusTrace()
    : videoStreams("video stream", &streamState<Stream::VideoObject>, onMessage)
    , audioStreams("audio stream", &streamState<Stream::AudioObject>, onMessage)
    , compositions("composition", &compositionState, onMessage)
    , fastTracks("fast track", &fastTrackState, onMessage) {}

void BusTrace::attend(const Composition::Object& composition, const FastTrack::Object& fastTrack) {
    compositions.subscribe(&composition);
    fastTracks.subscribe(&fastTrack);
}

} // namespace EditorFakes
