// Project::GridSampler: picks from a clip's pictures those that a constant frame rate shows.
#pragma once

#include "Kestra/Proc/Filters/VideoFilterBase.h"
#include <boost/rational.hpp>

namespace Project {

/// Frame n of the grid shows what the source shows at the middle of its period. Yields each source frame that is shown
/// once, with the time from the grid's frame `first` and a duration of all the periods in which it stands: `count`
/// periods altogether. What is not shown is not passed on, what is shown repeatedly comes once, so later filters do no
/// work twice. Before the source's first frame that one is shown, after its last frame the last one. Where the source's
/// frames are meant for the rate (`own`), those that come a little early or late have a period each all the same.
class GridSampler final : public Kestra::Proc::VideoFilterBase {
public:
    GridSampler(boost::intrusive_ptr<Kestra::Proc::IStreamVideo> source, const boost::rational<long long>& rate,
                bool own, std::int64_t first, std::int64_t count);

    /// Throws ProcException (SourceUnreadable) when the source has no frame at all.
    boost::intrusive_ptr<Kestra::Proc::IDataVideo> ReadVideo() override;
    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override;
    /// Read from the start only.
    void Seek(std::int64_t time, Kestra::Proc::SeekMode mode) override;
    bool IsSeekable() const override { return false; }
    void Reset() override;

private:
    void Start();
    void Supply(std::int64_t period);
    std::int64_t PeriodAfterCurrent(std::int64_t time) const;
    std::int64_t RunLength() const;

    const boost::rational<long long> rate;
    const bool own;
    const std::int64_t first;
    const std::int64_t count;
    bool started = false;
    bool ended = false;
    std::int64_t produced = 0;
    boost::intrusive_ptr<Kestra::Proc::IDataVideo> current;
    std::int64_t currentPeriod = 0;                      ///< the first that shows it, counted from the source's start
    boost::intrusive_ptr<Kestra::Proc::IDataVideo> next; ///< read, but shown later only
    std::int64_t nextPeriod = 0;
};

} // namespace Project
