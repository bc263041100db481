// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Mux/SequenceMuxer.h"

#include "Kestra/Conf/EngineSetting.h"
#include "Kestra/Core/DataOutputFF.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Data/CodecParametersFF.h"
#include <algorithm>

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

std::string Quoted(const std::string& text) {
    return '"' + text + '"';
}

bool HasOptions(const Conf::IFormatFile& format) {
    const char* const tag = Conf::TagOf(Conf::ContainerSetting::Options);
    return format.GetProperty().ChildExists(tag) && !format.GetProperty()[tag].GetChildren().empty();
}

} // namespace

SequenceMuxer::SequenceMuxer(const Conf::Container& container, const Conf::IFormatFile& format,
                             const Core::IDataOutput& output)
    : container(container) {
    const std::string path = output.GetPath().ToUtf8();
    const std::size_t slash = path.rfind('/');
    folder = slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
    const auto parsed = Conf::NumberedName::Parse(path.substr(folder.size()));
    if (!parsed)
        Fail(TranscodingError::MuxerRefused,
             "The pictures of " + Quoted(path) + " need numbers: the name has to hold one place for them, as %05d");
    name = *parsed;
    if (HasOptions(format))
        Fail(TranscodingError::MuxerRefused, "The container " + Quoted(container.id) + " has no options");
}

void SequenceMuxer::RequireState(State wanted, const char* operation, SourcePlace place) const {
    if (state != wanted)
        Fail(TranscodingError::InvalidArgument, std::string("A muxer was told to ") + operation + " out of order",
             place);
}

int SequenceMuxer::AddStream(const boost::intrusive_ptr<Conf::IFormatCodec>& codec) {
    RequireState(State::Adding, "add a track");
    const CodecParametersFF* parameters = codec ? CodecParametersOf(*codec) : nullptr;
    if (!parameters)
        Fail(TranscodingError::MuxerRefused,
             "A track for " + Quoted(container.id) + " does not come from an encoder of this engine");
    const AVCodecID id = parameters->GetParameters().codec_id;
    const bool isHeld = std::any_of(container.codecs.begin(), container.codecs.end(),
                                    [id](Conf::CodecID held) { return ToAv(held) == id; });
    if (!isHeld)
        Fail(TranscodingError::MuxerRefused,
             "The container " + Quoted(container.id) + " cannot hold " + avcodec_get_name(id));
    if (hasTrack)
        Fail(TranscodingError::MuxerRefused, "The container " + Quoted(container.id) + " holds one track");
    hasTrack = true;
    return 0;
}

void SequenceMuxer::Open() {
    RequireState(State::Adding, "open");
    if (!hasTrack)
        Fail(TranscodingError::MuxerRefused,
             "There is nothing to be written into " + Quoted(container.id) + ": no track");
    state = State::Open;
}

void SequenceMuxer::Write(int index, const boost::intrusive_ptr<Proc::IDataRaw>& packet) {
    RequireState(State::Open, "write a packet");
    if (!packet || index != 0)
        Fail(TranscodingError::InvalidArgument, "A muxer was given no packet, or one of an unknown track");
    const auto file = Core::DataOutputFF::Create(ioPath(folder + name.NameOf(next)));
    file->Open();
    file->Write(packet->GetBytes(), packet->GetSize());
    file->Close();
    ++next;
}

void SequenceMuxer::Finish() {
    RequireState(State::Open, "finish");
    state = State::Done;
}

void SequenceMuxer::Abort() noexcept {
    state = State::Done;
}

} // namespace Kestra::FF
