// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/StreamInfoCache.h"

#include "Kestra/FF/Av/Error.h"
#include <cstring>

namespace Kestra::FF {

namespace {

void Copy(AVCodecParameters& to, const AVCodecParameters& from) {
    Check(avcodec_parameters_copy(&to, &from), Proc::TranscodingError::OutOfMemory,
          "Copying the description of a stream failed");
}

bool SameKind(const AVCodecParameters& a, const AVCodecParameters& b) {
    return a.codec_type == b.codec_type && a.codec_id == b.codec_id && a.codec_tag == b.codec_tag &&
           a.extradata_size == b.extradata_size &&
           (a.extradata_size <= 0 ||
            std::memcmp(a.extradata, b.extradata, static_cast<std::size_t>(a.extradata_size)) == 0);
}

} // namespace

// Files of the MOV family index every packet, with both of its times. Other containers leave it to the decoder's delay
// to tell when a picture is shown, and that libavformat has to find out itself.
std::shared_ptr<const StreamInfoCache> StreamInfoCache::Of(const AVFormatContext& context) {
    if (std::strncmp(context.iformat->name, "mov", 3) != 0)
        return {};
    auto known = std::make_shared<StreamInfoCache>();
    known->startTime = context.start_time;
    known->duration = context.duration;
    known->durationMethod = context.duration_estimation_method;
    for (unsigned index = 0; index < context.nb_streams; ++index) {
        const AVStream& stream = *context.streams[index];
        CodecParametersHandle parameters = MakeCodecParameters();
        Copy(*parameters, *stream.codecpar);
        known->streams.push_back({std::move(parameters), stream.sample_aspect_ratio, stream.avg_frame_rate,
                                  stream.r_frame_rate, stream.start_time, stream.duration});
    }
    return known;
}

bool StreamInfoCache::AreThoseOf(const AVFormatContext& context) const {
    bool same = context.nb_streams == streams.size();
    for (unsigned index = 0; same && index < context.nb_streams; ++index)
        same = SameKind(*context.streams[index]->codecpar, *streams[index].parameters);
    return same;
}

bool StreamInfoCache::DescribeAgain(AVFormatContext& context) const {
    if (!AreThoseOf(context))
        return false;
    for (unsigned index = 0; index < context.nb_streams; ++index) {
        AVStream& stream = *context.streams[index];
        const Stream& known = streams[index];
        Copy(*stream.codecpar, *known.parameters);
        stream.sample_aspect_ratio = known.sampleAspect;
        stream.avg_frame_rate = known.averageRate;
        stream.r_frame_rate = known.realRate;
        stream.start_time = known.startTime;
        stream.duration = known.duration;
    }
    context.start_time = startTime;
    context.duration = duration;
    context.duration_estimation_method = durationMethod;
    return true;
}

} // namespace Kestra::FF
