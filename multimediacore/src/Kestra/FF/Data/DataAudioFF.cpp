// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Data/DataAudioFF.h"

#include "Kestra/Base/Exception.h"
#include "Kestra/FF/Av/Convert.h"
#include <stdexcept>
#include <utility>

namespace Kestra::FF {

DataAudioFF::DataAudioFF(FrameHandle samples, std::int64_t time)
    : frame(std::move(samples))
    , time(time)
    , duration(SamplesToTime(frame->nb_samples, frame->sample_rate)) {}

std::size_t DataAudioFF::GetByteSize() const {
    const auto format = static_cast<AVSampleFormat>(frame->format);
    return static_cast<std::size_t>(av_get_bytes_per_sample(format)) * static_cast<std::size_t>(frame->nb_samples) *
           static_cast<std::size_t>(frame->ch_layout.nb_channels);
}

boost::intrusive_ptr<Proc::IDataAudio> DataAudioFF::Slice(std::int64_t offset, std::int64_t count) const {
    if (offset < 0 || count < 0 || offset + count > frame->nb_samples)
        KESTRA_THROW(std::invalid_argument("a slice beyond its block of samples"));
    FrameHandle part = MakeFrameReference(*frame);
    const auto format = static_cast<AVSampleFormat>(part->format);
    const bool planar = av_sample_fmt_is_planar(format) != 0;
    const int channels = part->ch_layout.nb_channels;
    const std::int64_t step = static_cast<std::int64_t>(av_get_bytes_per_sample(format)) * (planar ? 1 : channels);
    for (int plane = 0; plane < (planar ? channels : 1); ++plane)
        part->extended_data[plane] += offset * step;
    // For up to eight planes extended_data is data itself; beyond, libav keeps the first eight in both.
    if (part->extended_data != part->data)
        for (int plane = 0; plane < AV_NUM_DATA_POINTERS && plane < (planar ? channels : 1); ++plane)
            part->data[plane] = part->extended_data[plane];
    part->nb_samples = static_cast<int>(count);
    return new DataAudioFF(std::move(part), time + SamplesToTime(offset, frame->sample_rate));
}

const AVFrame& FrameOf(const Proc::IDataAudio& data) {
    const auto* own = dynamic_cast<const DataAudioFF*>(&data);
    if (!own)
        KESTRA_THROW(std::invalid_argument("a block of samples that this engine did not make"));
    return own->GetFrame();
}

} // namespace Kestra::FF
