// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Filters/Concatenation.h"

#include "Kestra/Base/Exception.h"
#include "Kestra/Base/Time.h"
#include <algorithm>
#include <stdexcept>
#include <utility>

namespace Kestra::Proc {

void Concatenation::Append(const boost::intrusive_ptr<IStreamVideo>& stream) {
    if (!stream)
        KESTRA_THROW(std::invalid_argument("A null stream cannot be appended"));
    if (stream->GetDuration() == TIME_UNKNOWN)
        KESTRA_THROW(std::invalid_argument("A stream of unknown duration cannot be appended"));
    if (begun)
        KESTRA_THROW(FilterException(TranscodingError::InvalidArgument,
                                     "Streams are appended before the first read, not after it"));
    if (!parts.empty()) {
        boost::intrusive_ptr<Conf::IFormatCodecVideo> format;
        GetVideoFormat(format);
        stream->PreferFormat(*format);
    }
    const std::int64_t start = GetDuration();
    parts.push_back({stream, start, start + stream->GetDuration()});
}

std::int64_t Concatenation::GetDuration() const {
    return parts.empty() ? 0 : parts.back().end;
}

void Concatenation::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const {
    if (parts.empty())
        format = Conf::IFormatCodecVideo::Create();
    else
        parts.front().stream->GetVideoFormat(format);
}

bool Concatenation::IsSeekable() const {
    return std::all_of(parts.begin(), parts.end(), [](const Part& part) { return part.stream->IsSeekable(); });
}

std::string Concatenation::Describe() const {
    std::string text = "concatenation of";
    for (const Part& part : parts)
        text += (&part == &parts.front() ? " " : ", ") + part.stream->Describe();
    return text;
}

void Concatenation::PreferFormat(const Conf::IFormatCodec& format) {
    for (const Part& part : parts)
        part.stream->PreferFormat(format);
}

void Concatenation::Prepare() {
    if (!parts.empty())
        PreparePart(parts.front());
}

// Each part when it is reached: what a part opens is not open beside all the others.
void Concatenation::PreparePart(Part& part) {
    if (!std::exchange(part.prepared, true))
        part.stream->Prepare();
}

void Concatenation::Interrupt() {
    for (const Part& part : parts)
        part.stream->Interrupt();
}

// Later parts may have been read before a seek went back.
void Concatenation::Enter(std::size_t index) {
    current = index;
    ahead.reset();
    if (current < parts.size() && parts[current].stream->GetPosition() != 0)
        parts[current].stream->Seek(0, SeekMode::Exact);
}

boost::intrusive_ptr<IDataVideo> Concatenation::ReadPart() {
    Part& part = parts[current];
    PreparePart(part);
    auto frame = ahead ? std::move(ahead) : part.stream->ReadVideo();
    const std::int64_t length = part.end - part.start;
    if (!frame || frame->GetTime() >= length)
        return {};
    ahead = part.stream->ReadVideo();
    const bool last = !ahead || ahead->GetTime() >= length;
    const std::int64_t end = last ? length : ahead->GetTime();
    const std::int64_t start = frame->GetTime();
    frame->SetTime(part.start + start);
    frame->SetDuration(end - start);
    return frame;
}

boost::intrusive_ptr<IDataVideo> Concatenation::ReadVideo() {
    begun = true;
    while (current < parts.size()) {
        if (auto frame = ReadPart()) {
            position = frame->GetTime() + frame->GetDuration();
            return frame;
        }
        Enter(current + 1);
    }
    position = GetDuration();
    return {};
}

void Concatenation::Seek(std::int64_t time, SeekMode mode) {
    position = std::clamp<std::int64_t>(time, 0, GetDuration());
    ahead.reset();
    const auto covers = [this](const Part& part) { return position < part.end; };
    current = static_cast<std::size_t>(std::find_if(parts.begin(), parts.end(), covers) - parts.begin());
    if (current < parts.size())
        parts[current].stream->Seek(position - parts[current].start, mode);
}

void Concatenation::Reset() {
    for (Part& part : parts) {
        part.stream->Reset();
        part.prepared = false;
    }
    current = 0;
    position = 0;
    begun = false;
    ahead.reset();
}

} // namespace Kestra::Proc
