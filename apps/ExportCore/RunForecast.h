// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::RunForecast: how fast a run is, and how long it takes yet.
#pragma once

#include <QtGlobal>
#include <cstdint>
#include <vector>

namespace ExportCore {

/// Pure arithmetic over what a run tells and when; times are milliseconds of any clock that does not go back. Where the
/// run keeps its speed the remaining time is within 30 percent from a tenth of the run on.
class RunForecast {
public:
    struct Run {
        int passes = 1;
        qint64 frames = 0;           ///< of the output; 0 without picture
        double laterPassCosts = 1.5; ///< how many times as long as the first pass each later one takes
    };

    /// What is known of a run at one time.
    struct Sight {
        int percent = 0;   ///< of the whole run, every pass an equal share
        qint64 guess = -1; ///< the engine's own remaining time, which counts passes as equal too; -1 when unknown
        double read = -1;  ///< the part of the pass's pictures that has been read, from 0 to 1; -1 when unknown
    };

    /// What a Sight tells, from where the source has been read to, in the time in which the run begins at `start` and
    /// takes `length`; -1 where it has none.
    static double partRead(std::int64_t reached, std::int64_t start, std::int64_t length);

    explicit RunForecast(const Run& run);

    /// Once for each pass, as it begins.
    void beginPass(qint64 now);
    void advance(const Sight& sight, qint64 now);

    /// Of the pass that runs; 0 when unknown.
    double framesPerSecond() const;
    /// -1 when unknown.
    qint64 remaining(qint64 now) const;
    /// How far the pass that runs has come, from 0 to 1.
    double part() const { return last.part; }
    /// From 1 on; 0 before the first one.
    int pass() const { return passIndex + 1; }

private:
    /// A part of a pass that was reached, from 0 to 1.
    struct Mark {
        double part;
        double time;
    };

    struct Stretch {
        Mark begin{0, 0};
        Mark end{0, 0};
    };

    double partOf(const Sight& sight, qint64 now);
    /// What tells the pace as it has been of late; empty when nothing does.
    Stretch latest() const;
    /// Milliseconds from its start to that part of the first pass, which is over.
    double inFirstPass(double part) const;
    /// Parts of the pass in a millisecond, as it has been of late; 0 when unknown.
    double pace() const;
    void keepFirstPass();
    /// How long the rest of a later pass takes, by the course of the first one and how much slower this one is of late.
    double yetLikeFirstPass() const;
    /// What of the time before the first packet the end of the pass is spared.
    double sparedAtTheEnd() const;
    /// How long the pass that runs takes as a whole: by the pace of its packets, by all that was seen of it, and by
    /// what was expected of it as well; 0 when unknown.
    double lengthByPace() const;
    double lengthBySights() const;
    double lengthOfPass() const;

    const Run run;
    int passIndex = -1;
    double start = 0;          ///< of the pass
    double firstPassTook = 0;  ///< known in the later ones
    double heldBack = -1;      ///< how far the packets of the pass are behind what was read for it; -1 before any came
    Mark last{0, 0};           ///< in the pass
    std::vector<Mark> reached; ///< in the pass, both rising
    std::size_t marksWhileReading = 0;
    std::vector<Mark> firstPass; ///< marks of the first pass, from its start on, with its end; empty where unknown
};

} // namespace ExportCore
