// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/FirstPassDraft.h"

namespace Kestra::FF {

namespace {

constexpr int SMALLEST_SIDE = 64; // of a half
constexpr int SHORTEST_SECONDS = 4;

std::uint32_t HalfSide(int side, int unit) {
    return static_cast<std::uint32_t>(side / 2 / unit * unit);
}

} // namespace

FirstPassDraft FirstPassDraft::WholeFrames(const std::string& why) {
    return {std::nullopt, "The first pass looks at whole pictures in place of halves: " + why};
}

FirstPassDraft FirstPassDraft::HalfOf(const EncoderInput& input, std::int64_t frames,
                                      const boost::rational<long long>& rate) {
    constexpr int EVEN = 2;
    constexpr int EVEN_FIELDS = 4;
    const Conf::Draft half{HalfSide(input.width, EVEN), HalfSide(input.height, input.interlaced ? EVEN_FIELDS : EVEN)};
    if (half.width < SMALLEST_SIDE || half.height < SMALLEST_SIDE)
        return WholeFrames("a side of the picture has less than " + std::to_string(2 * SMALLEST_SIDE) + " pixels");
    if (frames < 0)
        return WholeFrames("nobody knows how long the film is");
    if (boost::rational<long long>(frames) < SHORTEST_SECONDS * rate)
        return WholeFrames("the film is shorter than " + std::to_string(SHORTEST_SECONDS) + " seconds");
    return {half, {}};
}

} // namespace Kestra::FF
