// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::StreamInfoCache: what decoding has told about the streams of a file, so that it need not be asked twice.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include <cstdint>
#include <memory>
#include <vector>

namespace Kestra::FF {

/// Immutable, so that threads may share it.
class StreamInfoCache {
public:
    /// What is known of the streams of an opened file whose streams have been found; null where the container's header
    /// alone does not give the rest, or streams may come up later.
    static std::shared_ptr<const StreamInfoCache> Of(const AVFormatContext& context);

    /// Describes the streams of the same file, opened again, without reading on. False, with nothing changed, when they
    /// are not the known ones: the file is another one by now.
    bool DescribeAgain(AVFormatContext& context) const;

private:
    struct Stream {
        CodecParametersHandle parameters;
        AVRational sampleAspect = {0, 1};
        AVRational averageRate = {0, 1};
        AVRational realRate = {0, 1};
        std::int64_t startTime = AV_NOPTS_VALUE;
        std::int64_t duration = AV_NOPTS_VALUE;
    };

    bool AreThoseOf(const AVFormatContext& context) const;

    std::vector<Stream> streams;
    std::int64_t startTime = AV_NOPTS_VALUE;
    std::int64_t duration = AV_NOPTS_VALUE;
    AVDurationEstimationMethod durationMethod = AVFMT_DURATION_FROM_PTS;
};

} // namespace Kestra::FF
