// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/branding/RecordingVideo.h"

#include <utility>

namespace Kestra::Fakes {

boost::intrusive_ptr<Proc::IDataVideo> RecordingVideo::ReadVideo() {
    log->Add("ReadVideo");
    if (next)
        std::rethrow_exception(std::exchange(next, nullptr));
    return FakeStreamVideo::ReadVideo();
}

void RecordingVideo::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const {
    log->Add("GetVideoFormat");
    FakeStreamVideo::GetVideoFormat(format);
}

std::int64_t RecordingVideo::GetDuration() const {
    log->Add("GetDuration");
    return FakeStreamVideo::GetDuration();
}

std::int64_t RecordingVideo::GetPosition() const {
    log->Add("GetPosition");
    return FakeStreamVideo::GetPosition();
}

boost::intrusive_ptr<Proc::IData> RecordingVideo::ReadData() {
    log->Add("ReadData");
    return FakeStreamVideo::ReadVideo();
}

void RecordingVideo::Initialize(const Core::Property&) {
    log->Add("Initialize");
}

Core::Property RecordingVideo::GetSettings() const {
    log->Add("GetSettings");
    return {};
}

void RecordingVideo::Seek(std::int64_t time, Proc::SeekMode mode) {
    log->Add("Seek " + std::to_string(time) + ' ' + std::to_string(static_cast<int>(mode)));
    FakeStreamVideo::Seek(time, mode);
}

void RecordingVideo::Interrupt() {
    log->Add("Interrupt");
    FakeStreamVideo::Interrupt();
}

bool RecordingVideo::IsSeekable() const {
    log->Add("IsSeekable");
    return FakeStreamVideo::IsSeekable();
}

void RecordingVideo::GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const {
    log->Add("GetFormatCodec");
    FakeStreamVideo::GetFormatCodec(format);
}

std::string RecordingVideo::Describe() const {
    log->Add("Describe");
    return description;
}

void RecordingVideo::PreferFormat(const Conf::IFormatCodec& format) {
    const auto* video = dynamic_cast<const Conf::IFormatCodecVideo*>(&format);
    log->Add("PreferFormat " + std::to_string(video ? video->GetFrameInfo().width : 0));
}

void RecordingVideo::Prepare() {
    log->Add("Prepare");
}

void RecordingVideo::Reset() {
    log->Add("Reset");
    FakeStreamVideo::Reset();
}

} // namespace Kestra::Fakes
