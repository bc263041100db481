// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Picture/BandedFilter.h"

#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Picture/FrameGeometry.h"
#include <algorithm>
#include <exception>
#include <system_error>
#include <thread>

namespace Kestra::FF {

namespace {

/// Of rows: whole samples of chroma, in both fields, and more than any filter of chroma reaches.
constexpr int STEP = 16;

/// Runs them all, on a thread each but the first; where no thread is to be had, one after the other.
template <class Work>
void RunBesideEachOther(std::size_t count, const Work& work) {
    std::vector<std::exception_ptr> failures(count);
    const auto run = [&](std::size_t index) noexcept {
        try {
            work(index);
        } catch (...) {
            failures[index] = std::current_exception();
        }
    };
    std::vector<std::thread> threads;
    threads.reserve(count);
    for (std::size_t index = 1; index < count; ++index) {
        try {
            threads.emplace_back(run, index);
        } catch (const std::system_error&) {
            run(index);
        }
    }
    run(0);
    for (std::thread& thread : threads)
        thread.join();
    for (const std::exception_ptr& failure : failures)
        if (failure)
            std::rethrow_exception(failure);
}

} // namespace

BandedFilter::BandedFilter(const std::string& chain, const std::string& failure, int bands) {
    for (int band = 0; band < bands; ++band)
        graphs.emplace_back(chain, failure);
}

std::vector<BandedFilter::Band> BandedFilter::BandsOf(int height, std::size_t count) {
    const int steps = (height + STEP - 1) / STEP;
    const int number = std::clamp(static_cast<int>(count), 1, std::max(steps, 1));
    std::vector<Band> bands;
    for (int index = 0; index < number; ++index) {
        Band band;
        band.top = steps * index / number * STEP;
        band.bottom = std::min(steps * (index + 1) / number * STEP, height);
        band.topAround = std::max(band.top - STEP, 0);
        band.bottomAround = std::min(band.bottom + STEP, height);
        bands.push_back(band);
    }
    return bands;
}

std::vector<FrameHandle> BandedFilter::FilterAll(const AVFrame& frame, const std::vector<Band>& bands) {
    std::vector<FrameHandle> made(bands.size());
    RunBesideEachOther(bands.size(), [&](std::size_t index) {
        const Band& band = bands[index];
        const FrameRect rows{0, band.topAround, frame.width, band.bottomAround - band.topAround};
        made[index] = graphs[index].Filter(*MakeView(frame, rows));
    });
    return made;
}

FrameHandle BandedFilter::Filter(const AVFrame& frame) {
    const std::vector<Band> bands = BandsOf(frame.height, graphs.size());
    if (bands.size() == 1)
        return graphs.front().Filter(frame);
    const std::vector<FrameHandle> made = FilterAll(frame, bands);
    const AVFrame& first = *made.front();
    FrameHandle result = pool.Get(static_cast<AVPixelFormat>(first.format), frame.width, frame.height);
    Check(av_frame_copy_props(result.get(), &first), Proc::TranscodingError::OutOfMemory, "Joining a picture failed");
    for (std::size_t index = 0; index < bands.size(); ++index) {
        const Band& band = bands[index];
        const int height = band.bottom - band.top;
        const FrameHandle from = MakeView(*made[index], {0, band.top - band.topAround, frame.width, height});
        const FrameHandle to = MakeView(*result, {0, band.top, frame.width, height});
        Check(av_frame_copy(to.get(), from.get()), Proc::TranscodingError::FilterFailed, "Joining a picture failed");
    }
    return result;
}

} // namespace Kestra::FF
