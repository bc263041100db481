// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::RunForecast: how fast a run is, and how long it takes yet.
#pragma once

#include <QtGlobal>
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

    explicit RunForecast(const Run& run);

    /// Once for each pass, as it begins.
    void beginPass(qint64 now);
    /// `percent` of the whole run, every pass an equal share; `guess` is the engine's own remaining time, which counts
    /// passes as equal too, -1 when unknown. It counts until percents have come.
    void advance(int percent, qint64 guess, qint64 now);

    /// Of the pass that runs; 0 when unknown.
    double framesPerSecond() const;
    /// -1 when unknown.
    qint64 remaining(qint64 now) const;
    /// From 1 on; 0 before the first one.
    int pass() const { return passIndex + 1; }

private:
    /// A part of a pass that was reached, from 0 to 1.
    struct Mark {
        double part;
        double time;
    };

    void reach(double part, qint64 now);
    /// Parts of the pass in a millisecond, as it has been of late; 0 when unknown.
    double pace() const;
    /// How long the pass that runs takes as a whole, by its own pace; 0 when unknown.
    double lengthByPace() const;
    double lengthOfPass() const;

    const Run run;
    int passIndex = -1;
    double start = 0;          ///< of the pass
    double firstPassTook = 0;  ///< known in the later ones
    std::vector<Mark> reached; ///< in the pass, both rising
};

} // namespace ExportCore
