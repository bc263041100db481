#include "Kestra/Proc/Filters/VideoFilterBase.h"

#include "Kestra/Proc/Filters/NotImplemented.h"
#include <boost/throw_exception.hpp>
#include <stdexcept>
#include <utility>

namespace Kestra::Proc {

VideoFilterBase::VideoFilterBase(boost::intrusive_ptr<IStreamVideo> source, std::string name)
    : source(std::move(source))
    , name(std::move(name)) {
    if (!this->source)
        BOOST_THROW_EXCEPTION(std::invalid_argument("The filter \"" + this->name + "\" was given no source"));
}

VideoFilterBase::~VideoFilterBase() = default;

boost::intrusive_ptr<IDataVideo> VideoFilterBase::ReadVideo() {
    return source->ReadVideo();
}

void VideoFilterBase::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const {
    source->GetVideoFormat(format);
}

void VideoFilterBase::Initialize(const Core::Property&) {
    KESTRA_NOT_IMPLEMENTED();
}

Core::Property VideoFilterBase::GetSettings() const {
    KESTRA_NOT_IMPLEMENTED();
}

std::int64_t VideoFilterBase::GetDuration() const {
    return source->GetDuration();
}

std::int64_t VideoFilterBase::GetPosition() const {
    return source->GetPosition();
}

boost::intrusive_ptr<IData> VideoFilterBase::ReadData() {
    return ReadVideo();
}

void VideoFilterBase::Seek(std::int64_t time, SeekMode mode) {
    source->Seek(time, mode);
}

void VideoFilterBase::Interrupt() {
    source->Interrupt();
}

bool VideoFilterBase::IsSeekable() const {
    return source->IsSeekable();
}

void VideoFilterBase::GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const {
    GetFormatCodecBase(format);
}

std::string VideoFilterBase::Describe() const {
    return name + " of " + source->Describe();
}

void VideoFilterBase::PreferFormat(const Conf::IFormatCodec& format) {
    source->PreferFormat(format);
}

void VideoFilterBase::Prepare() {
    source->Prepare();
}

void VideoFilterBase::Reset() {
    source->Reset();
}

} // namespace Kestra::Proc
