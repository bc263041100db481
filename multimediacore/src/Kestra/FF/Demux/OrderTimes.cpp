// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/OrderTimes.h"

#include "Kestra/FF/Av/Error.h"
#include <algorithm>
#include <cstdlib>
#include <utility>

namespace Kestra::FF {

namespace {

// Pictures behind one that tell whether its time is right: more than begin in a few packs, and some that have a time.
constexpr int ENOUGH_FRAMES = 48;
constexpr int ENOUGH_TIMES = 3;
// More than lie between two packs in any real file, also of many tracks.
constexpr std::size_t LONGEST_QUEUE = 256;

// Times that are off by more periods are not those of a picture nearby.
constexpr std::int64_t LARGEST_ERROR = 8;

struct ParserCloser {
    void operator()(AVCodecParserContext* parser) const noexcept { av_parser_close(parser); }
};

} // namespace

OrderTimes::PlaceFinder OrderTimes::FinderFor(const AVStream& stream) {
    const AVCodecID codec = stream.codecpar->codec_id;
    if (codec != AV_CODEC_ID_H264 && codec != AV_CODEC_ID_HEVC)
        return {};
    const std::shared_ptr<AVCodecParserContext> parser(av_parser_init(codec), ParserCloser());
    const std::shared_ptr<AVCodecContext> context = MakeCodecContext(nullptr);
    if (!parser || avcodec_parameters_to_context(context.get(), stream.codecpar) < 0)
        return {};
    parser->flags |= PARSER_FLAG_COMPLETE_FRAMES;
    return [parser, context](const AVPacket& packet) -> std::optional<int> {
        std::uint8_t* data = nullptr;
        int size = 0;
        parser->output_picture_number = INT32_MIN;
        av_parser_parse2(parser.get(), context.get(), &data, &size, packet.data, packet.size, packet.pts, packet.dts,
                         packet.pos);
        if (parser->output_picture_number == INT32_MIN)
            return {};
        return parser->output_picture_number;
    };
}

void OrderTimes::Push(PacketHandle packet, const AVStream& stream) {
    if (videoStream < 0 && (videoFinder = FinderFor(stream)))
        videoStream = stream.index;
    Push(std::move(packet), stream.index == videoStream ? videoFinder : PlaceFinder());
}

void OrderTimes::Push(PacketHandle packet, const PlaceFinder& finder) {
    Waiting next{std::move(packet)};
    const std::optional<int> place = finder && next.packet->duration > 0 ? finder(*next.packet) : std::nullopt;
    if (place) {
        next.ordered = true;
        next.place = *place;
        // Places begin anew where a picture needs none before it, and is not shown behind those.
        if ((next.packet->flags & AV_PKT_FLAG_KEY) && *place <= lastPlace) {
            ++sequence;
            lastPlace = INT32_MIN;
        }
        lastPlace = std::max(lastPlace, *place);
        // H.264 counts fields as a rule; what has an odd place does not.
        step = *place % 2 != 0 ? 1 : step;
        next.sequence = sequence;
        period = next.packet->duration;
        ++pictures;
        timed += next.packet->pts == AV_NOPTS_VALUE ? 0 : 1;
    }
    queue.push_back(std::move(next));
}

bool OrderTimes::Pop(AVPacket& packet) {
    if (queue.empty() || !CanSettle())
        return false;
    if (queue.front().ordered) {
        --pictures;
        timed -= queue.front().packet->pts == AV_NOPTS_VALUE ? 0 : 1;
        Settle(queue.front());
    }
    av_packet_move_ref(&packet, queue.front().packet.get());
    queue.pop_front();
    return true;
}

bool OrderTimes::CanSettle() const {
    const bool enough = pictures > ENOUGH_FRAMES && timed > ENOUGH_TIMES;
    return ended || !queue.front().ordered || enough || queue.size() >= LONGEST_QUEUE;
}

bool OrderTimes::IsNear(std::int64_t time, std::int64_t other) const {
    return std::abs(time - other) <= period / 2;
}

// When place 0 is shown if the picture's time is right.
std::int64_t OrderTimes::StartOf(const Waiting& picture) const {
    return picture.packet->pts - picture.place * period / step;
}

// How many pictures of the sequence say so.
int OrderTimes::Agreeing(const Waiting& first, std::int64_t start) const {
    return static_cast<int>(std::count_if(queue.begin(), queue.end(), [&](const Waiting& other) {
        return other.ordered && other.sequence == first.sequence && other.packet->pts != AV_NOPTS_VALUE &&
               IsNear(StartOf(other), start);
    }));
}

// Where no more of its times say something else, it goes on behind the sequence before.
void OrderTimes::Begin(const Waiting& first) {
    startOf = first.sequence;
    start.reset();
    if (lastShown != AV_NOPTS_VALUE)
        start = lastShown + period - first.place * period / step;
    int most = start ? Agreeing(first, *start) : 0;
    for (const Waiting& other : queue) {
        if (!other.ordered || other.sequence != first.sequence || other.packet->pts == AV_NOPTS_VALUE)
            continue;
        const int count = Agreeing(first, StartOf(other));
        if (count > most)
            start = StartOf(other);
        most = std::max(most, count);
    }
}

// A gap goes on behind it, a wrong time does not. One that is far off is believed unless others speak against it alone.
bool OrderTimes::IsBehindGap(const Waiting& first) const {
    const std::int64_t own = StartOf(first);
    const int with = Agreeing(first, own) - 1;
    const int against = Agreeing(first, *start);
    const bool isNearby = std::abs(own - *start) <= LARGEST_ERROR * period;
    return isNearby ? with > against : with > 0 || against == 0;
}

void OrderTimes::Settle(const Waiting& first) {
    AVPacket& packet = *first.packet;
    if (first.sequence != startOf)
        Begin(first);
    const std::int64_t next = lastDecoded == AV_NOPTS_VALUE ? AV_NOPTS_VALUE : lastDecoded + period;
    if (start) {
        if (packet.pts != AV_NOPTS_VALUE && IsBehindGap(first))
            start = StartOf(first);
        if (packet.pts == AV_NOPTS_VALUE || !IsNear(StartOf(first), *start)) {
            packet.pts = *start + first.place * period / step;
            packet.dts = next == AV_NOPTS_VALUE ? packet.dts : std::min(next, packet.pts);
        }
    }
    lastDecoded = packet.dts == AV_NOPTS_VALUE ? next : packet.dts;
    if (packet.pts != AV_NOPTS_VALUE)
        lastShown = lastShown == AV_NOPTS_VALUE ? packet.pts : std::max(lastShown, packet.pts);
}

} // namespace Kestra::FF
