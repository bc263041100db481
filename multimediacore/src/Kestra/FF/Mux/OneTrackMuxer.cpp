// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Mux/OneTrackMuxer.h"

#include "Kestra/Conf/EngineSetting.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include <algorithm>

namespace Kestra::FF {

using Proc::TranscodingError;

OptionList OneTrackMuxer::OptionsOf(const Conf::IFormatFile& format) {
    const char* const tag = Conf::TagOf(Conf::ContainerSetting::Options);
    return format.GetProperty().ChildExists(tag) ? OptionList(format.GetProperty()[tag]) : OptionList();
}

std::string OneTrackMuxer::Name() const {
    return std::string("\"") + container.id + '"';
}

void OneTrackMuxer::RequireState(State wanted, const char* operation, SourcePlace place) const {
    if (state != wanted)
        Fail(TranscodingError::InvalidArgument, std::string("A muxer was told to ") + operation + " out of order",
             place);
}

int OneTrackMuxer::AddStream(const boost::intrusive_ptr<Conf::IFormatCodec>& codec) {
    RequireState(State::Adding, "add a track");
    const CodecParametersFF* parameters = codec ? CodecParametersOf(*codec) : nullptr;
    if (!parameters)
        Fail(TranscodingError::MuxerRefused, "A track for " + Name() + " does not come from an encoder of this engine");
    const AVCodecID id = parameters->GetParameters().codec_id;
    const bool isHeld = std::any_of(container.codecs.begin(), container.codecs.end(),
                                    [id](Conf::CodecID held) { return ToAv(held) == id; });
    if (!isHeld)
        Fail(TranscodingError::MuxerRefused, "The container " + Name() + " cannot hold " + avcodec_get_name(id));
    if (hasTrack)
        Fail(TranscodingError::MuxerRefused, "The container " + Name() + " holds one track");
    Take(*parameters);
    hasTrack = true;
    return 0;
}

void OneTrackMuxer::Open() {
    RequireState(State::Adding, "open");
    if (!hasTrack)
        Fail(TranscodingError::MuxerRefused, "There is nothing to be written into " + Name() + ": no track");
    Begin();
    state = State::Open;
}

void OneTrackMuxer::Write(int index, const boost::intrusive_ptr<Proc::IDataRaw>& packet) {
    RequireState(State::Open, "write a packet");
    if (!packet || index != 0)
        Fail(TranscodingError::InvalidArgument, "A muxer was given no packet, or one of an unknown track");
    Put(*packet);
}

void OneTrackMuxer::Finish() {
    RequireState(State::Open, "finish");
    Complete();
    state = State::Done;
}

} // namespace Kestra::FF
