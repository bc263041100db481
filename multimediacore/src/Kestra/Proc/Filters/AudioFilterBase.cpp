#include "Kestra/Proc/Filters/AudioFilterBase.h"

#include "Kestra/Proc/Filters/NotImplemented.h"
#include <boost/throw_exception.hpp>
#include <stdexcept>
#include <utility>

namespace Kestra::Proc {

AudioFilterBase::AudioFilterBase(boost::intrusive_ptr<IStreamAudio> source, std::string name)
    : source(std::move(source))
    , name(std::move(name)) {
    if (!this->source)
        BOOST_THROW_EXCEPTION(std::invalid_argument("The filter \"" + this->name + "\" was given no source"));
}

AudioFilterBase::~AudioFilterBase() = default;

boost::intrusive_ptr<IDataAudio> AudioFilterBase::ReadAudio() {
    return source->ReadAudio();
}

void AudioFilterBase::GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const {
    source->GetAudioFormat(format);
}

void AudioFilterBase::Initialize(const Core::Property&) {
    KESTRA_NOT_IMPLEMENTED();
}

Core::Property AudioFilterBase::GetSettings() const {
    KESTRA_NOT_IMPLEMENTED();
}

std::int64_t AudioFilterBase::GetDuration() const {
    return source->GetDuration();
}

std::int64_t AudioFilterBase::GetPosition() const {
    return source->GetPosition();
}

boost::intrusive_ptr<IData> AudioFilterBase::ReadData() {
    return ReadAudio();
}

void AudioFilterBase::Seek(std::int64_t time, SeekMode mode) {
    source->Seek(time, mode);
}

void AudioFilterBase::Interrupt() {
    source->Interrupt();
}

bool AudioFilterBase::IsSeekable() const {
    return source->IsSeekable();
}

void AudioFilterBase::GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const {
    GetFormatCodecBase(format);
}

std::string AudioFilterBase::Describe() const {
    return name + " of " + source->Describe();
}

void AudioFilterBase::PreferFormat(const Conf::IFormatCodec& format) {
    source->PreferFormat(format);
}

void AudioFilterBase::Prepare() {
    source->Prepare();
}

void AudioFilterBase::Reset() {
    source->Reset();
}

} // namespace Kestra::Proc
