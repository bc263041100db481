// Project::ExportWindow: the part of a timeline that an export renders.
#pragma once

#include "EditorProjectExport.h"
#include "Types/Range.h"
#include <boost/rational.hpp>
#include <cstdint>

namespace Project {

/// A value. Times are engine time. With pictures the start is the nearest of their frames, counted from the start of
/// the composition; sound begins there too, so both stay in step to the sample.
class EDITORPROJECT_EXPORT ExportWindow {
public:
    /// `duration` is the timeline's; a rate of 0 means no pictures. An empty or inverted range is the whole timeline.
    /// Throws Kestra::Proc::ProcException (InvalidArgument) when nothing of the range lies on it.
    ExportWindow(const Types::Range& range, std::int64_t duration, const boost::rational<long long>& rate);

    std::int64_t start() const { return from; }
    std::int64_t end() const { return to; }
    const boost::rational<long long>& rate() const { return frameRate; }
    /// The composition's frame with which it begins; 0 without pictures.
    std::int64_t firstFrame() const { return first; }
    /// 0 without pictures.
    std::int64_t frames() const;
    std::int64_t samples(int sampleRate) const;

private:
    void snapToFrames();

    std::int64_t from = 0;
    std::int64_t to;
    boost::rational<long long> frameRate;
    std::int64_t first = 0;
};

} // namespace Project
