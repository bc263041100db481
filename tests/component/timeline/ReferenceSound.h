// SPDX-License-Identifier: GPL-3.0-or-later
// What each sample of a timeline is to be: every clip laid over the whole as it stands, and summed up.
#pragma once

#include "Kestra/Base/SampleGrid.h"
#include "Kestra/Base/TimeMap.h"
#include "KnownMedia.h"
#include "Render/Window.h"
#include "Timeline/Document.h"
#include <map>
#include <optional>

namespace TimelineTests {

class ReferenceSound {
public:
    /// Samples are counted from the start of the window.
    ReferenceSound(const KnownMedia& media, const Timeline::Document& document, const Render::Window& window,
                   const Kestra::SampleGrid& grid);

    struct Expected {
        double value = 0;
        double tolerance = 0;
    };
    /// Nothing where it cannot be told: at other speeds, and where sound of another rate begins or ends.
    std::optional<Expected> at(long long sample) const;

    /// For each medium, by its id, how loud its tone is in all samples from `first` to before `end`, but for those
    /// that are heard more than once. Nothing where anything begins, ends or fades there, or shortly before.
    std::optional<std::map<int, double>> tonesIn(long long first, long long end) const;
    /// Whether anything that is heard at another speed is heard at that sample.
    bool hasOtherSpeedAt(long long sample) const;

private:
    struct Fade {
        long long begin;
        long long end;
        bool in;
    };
    /// From `first` to before `end`; its medium's first sample lies at `start`.
    struct Voice {
        const KnownSound* medium;
        Rate speed;
        double start;
        long long first;
        long long end;
        std::vector<Fade> fades;

        bool isHeardAt(long long sample) const { return first <= sample && sample < end; }
        double gainAt(long long sample) const;
    };
    struct Around {
        long long first;
        long long end;
        std::vector<Fade> fades;
    };

    void add(const Timeline::Stack& stack, const Kestra::TimeMap& map, const Around& around);
    void add(const Timeline::Stack& stack, const Timeline::Track& track, const Kestra::TimeMap& map,
             const Around& around);
    void add(const Timeline::Clip& clip, const Kestra::TimeMap& map, const Around& around);
    Kestra::Ticks placed(const Timeline::Stack& stack, const Kestra::TimeMap& map, Kestra::Ticks time) const;
    long long sampleAt(Kestra::Ticks time) const { return grid.Nearest(time - window.start()).Value(); }
    bool changesIn(const Voice& voice, long long first, long long end) const;

    const KnownMedia& media;
    const Render::Window window;
    const Kestra::SampleGrid grid;
    std::vector<Voice> voices;
};

} // namespace TimelineTests
