#include "Kestra/FF/Encode/FirstPassDraft.h"

namespace Kestra::FF {

namespace {

constexpr int SMALLEST_SIDE = 64;
constexpr int SHORTEST_SECONDS = 4;

std::uint32_t HalfOf(int side, int unit) {
    return static_cast<std::uint32_t>(side / 2 / unit * unit);
}

} // namespace

std::optional<Conf::Draft> FirstPassDraft(const EncoderInput& input, std::int64_t frames,
                                          const boost::rational<long long>& rate) {
    constexpr int EVEN = 2;
    constexpr int EVEN_FIELDS = 4;
    const Conf::Draft half{HalfOf(input.width, EVEN), HalfOf(input.height, input.interlaced ? EVEN_FIELDS : EVEN)};
    const bool isSmall = half.width < SMALLEST_SIDE || half.height < SMALLEST_SIDE;
    const bool isShort = boost::rational<long long>(frames) < SHORTEST_SECONDS * rate;
    return isSmall || isShort ? std::nullopt : std::optional(half);
}

} // namespace Kestra::FF
