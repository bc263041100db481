#include "EditorProject/ExportWindow.h"

#include "Kestra/Base/SourcePlace.h"
#include "Kestra/Base/Time.h"
#include "Kestra/Proc/ProcException.h"
#include "Types/Time.h"
#include <algorithm>

namespace Project {
namespace {

[[noreturn]] void refuse(const Types::Range& range, const char* reason,
                         Kestra::SourcePlace place = Kestra::SourcePlace::Here()) {
    Kestra::ThrowFrom(Kestra::Proc::ProcException(Kestra::Proc::TranscodingError::InvalidArgument,
                                                  "The range from " + std::to_string(range.start.count()) + " to " +
                                                      std::to_string(range.end.count()) + " ms " + reason),
                      place);
}

[[noreturn]] void refuseLength(std::int64_t duration, Kestra::SourcePlace place = Kestra::SourcePlace::Here()) {
    const auto milliseconds = Types::fromAvTime(duration).count();
    const std::string length = milliseconds > 0 ? std::to_string(milliseconds) + " ms" : "less than a millisecond";
    Kestra::ThrowFrom(Kestra::Proc::ProcException(Kestra::Proc::TranscodingError::InvalidArgument,
                                                  "What is to be exported lasts " + length +
                                                      ", which is shorter than one frame of picture"),
                      place);
}

} // namespace

ExportWindow::ExportWindow(const Types::Range& range, std::int64_t duration, const boost::rational<long long>& rate)
    : to(duration)
    , frameRate(rate) {
    if (range.end > range.start) {
        from = std::max<std::int64_t>(0, Types::toAvTime(range.start));
        // The last millisecond is the user's name for the very end, which rarely falls on a millisecond.
        if (range.end < Types::fromAvTime(duration))
            to = Types::toAvTime(range.end);
        if (from >= to)
            refuse(range, "lies outside the project");
    }
    snapToFrames();
    const bool nothing = from >= to || (frameRate > 0 && frames() == 0);
    if (nothing && range.end <= range.start)
        refuseLength(duration);
    if (nothing)
        refuse(range, "is shorter than one frame");
}

void ExportWindow::snapToFrames() {
    if (frameRate <= 0)
        return;
    first = Kestra::TimeToFrames(from, frameRate);
    from = Kestra::FramesToTime(first, frameRate);
}

std::int64_t ExportWindow::frames() const {
    return frameRate > 0 ? Kestra::TimeToFrames(to - from, frameRate) : 0;
}

std::int64_t ExportWindow::samples(int sampleRate) const {
    return Kestra::TimeToSamples(to - from, sampleRate);
}

} // namespace Project
