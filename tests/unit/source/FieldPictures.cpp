// SPDX-License-Identifier: GPL-3.0-or-later
#include "unit/source/FieldPictures.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <vector>

extern "C" {
#include <libavformat/avformat.h>
}

namespace TestMedia {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int BLOCK = 16;
constexpr int GROUP = 10; // frames from one keyframe to the next
constexpr int STEP = 8;
constexpr int WIDTH = 32;

class Bits {
public:
    Bits& put(int count, unsigned value) {
        for (int bit = count - 1; bit >= 0; --bit) {
            if (used == 0)
                bytes.push_back(0);
            bytes.back() = static_cast<std::uint8_t>(bytes.back() | (value >> bit & 1U) << (7 - used));
            used = (used + 1) % 8;
        }
        return *this;
    }
    /// As Exp-Golomb codes.
    Bits& code(std::initializer_list<unsigned> values) {
        for (const unsigned value : values) {
            int length = 0;
            while ((value + 1) >> (length + 1) != 0)
                ++length;
            put(length, 0);
            put(length + 1, value + 1);
        }
        return *this;
    }
    Bits& align() {
        used = 0;
        return *this;
    }
    Bits& samples(std::size_t count, std::uint8_t value) {
        bytes.insert(bytes.end(), count, value);
        return *this;
    }
    /// With the bit that ends it.
    const Bytes& finished() {
        put(1, 1);
        return bytes;
    }

private:
    Bytes bytes;
    int used = 0; ///< bits of the last byte
};

void appendUnit(Bytes& stream, unsigned reference, unsigned type, const Bytes& payload) {
    stream.insert(stream.end(), {0, 0, 0, 1, static_cast<std::uint8_t>(reference << 5 | type)});
    int zeros = 0;
    for (const std::uint8_t byte : payload) {
        if (zeros >= 2 && byte <= 3) {
            stream.push_back(3);
            zeros = 0;
        }
        stream.push_back(byte);
        zeros = byte == 0 ? zeros + 1 : 0;
    }
}

// Main profile; frames may be coded as fields, of which 50 come in a second; one picture is reordered.
Bytes description(int width, int height) {
    Bytes stream;
    Bits sequence;
    sequence.put(8, 77).put(8, 0).put(8, 40).code({0, 4, 0, 4, 2}).put(1, 0);
    sequence.code({static_cast<unsigned>(width / BLOCK - 1), static_cast<unsigned>(height / BLOCK / 2 - 1)});
    sequence.put(5, 0b00101).put(4, 0).put(1, 1).put(32, 1).put(32, 50).put(1, 1).put(3, 0);
    sequence.put(2, 0b11).code({0, 0, 10, 10, 1, 2});
    appendUnit(stream, 3, 7, sequence.finished());
    Bits picture;
    picture.code({0, 0}).put(2, 0).code({0, 0, 0}).put(3, 0).code({0, 0, 0}).put(3, 0b100);
    appendUnit(stream, 3, 8, picture.finished());
    return stream;
}

struct Frame {
    int shown = 0;  ///< its place among all that are shown
    int group = 0;  ///< where its group begins
    int number = 0; ///< of the frames that others may refer to, in its group
    bool reference = true;
};

// In the order of coding.
std::vector<Frame> framesOf(int count) {
    std::vector<Frame> frames;
    for (int group = 0; group < count; group += GROUP) {
        const int end = std::min(group + GROUP, count);
        frames.push_back({group, group, 0, true});
        int number = 1;
        for (int place = group + 1; place < end; place += 2, ++number) {
            const int ahead = std::min(place + 1, end - 1);
            frames.push_back({ahead, group, number, true});
            if (ahead > place)
                frames.push_back({place, group, number + 1, false});
        }
    }
    return frames;
}

// Blocks of bare samples.
Bytes codedField(const Frame& frame, int second, bool topFieldFirst, int width, int height) {
    const bool key = frame.shown == frame.group && second == 0;
    const unsigned bottom = (second != 0) == topFieldFirst ? 1 : 0;
    Bits slice;
    slice.code({0, 7, 0}).put(8, static_cast<unsigned>(frame.number)).put(1, 1).put(1, bottom);
    if (key)
        slice.code({static_cast<unsigned>(frame.group / GROUP % 2)});
    slice.put(8, static_cast<unsigned>(2 * (frame.shown - frame.group) + second));
    if (frame.reference)
        slice.put(key ? 2 : 1, 0);
    slice.code({0, 1});
    const int bar = (2 * frame.shown + second) * STEP;
    for (int y = 0; y < height / 2; y += BLOCK)
        for (int x = 0; x < width; x += BLOCK) {
            slice.code({25}).align();
            for (int sample = 0; sample < BLOCK * BLOCK; ++sample) {
                const int column = x + sample % BLOCK;
                slice.samples(1, column >= bar && column < bar + WIDTH ? 210 : 50);
            }
            slice.samples(std::size_t{BLOCK} * BLOCK / 2, 128);
        }
    Bytes stream;
    appendUnit(stream, 0, 9, {0xf0});
    if (key) {
        const Bytes told = description(width, height);
        stream.insert(stream.end(), told.begin(), told.end());
    }
    appendUnit(stream, frame.reference ? 1 : 0, key ? 5 : 1, slice.finished());
    return stream;
}

struct CloseOutput {
    void operator()(AVFormatContext* context) const {
        avio_closep(&context->pb);
        avformat_free_context(context);
    }
};
struct FreePacket {
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};

void require(bool done) {
    if (!done)
        throw std::runtime_error("the fields cannot be written");
}

class Writer {
public:
    Writer(const std::string& path, int width, int height) {
        AVFormatContext* opened = nullptr;
        require(avformat_alloc_output_context2(&opened, nullptr, nullptr, path.c_str()) >= 0);
        context.reset(opened);
        stream = avformat_new_stream(opened, nullptr);
        require(stream != nullptr);
        AVCodecParameters& parameters = *stream->codecpar;
        parameters.codec_type = AVMEDIA_TYPE_VIDEO;
        parameters.codec_id = AV_CODEC_ID_H264;
        parameters.width = width;
        parameters.height = height;
        parameters.format = AV_PIX_FMT_YUV420P;
        const Bytes told = description(width, height);
        parameters.extradata = static_cast<std::uint8_t*>(av_mallocz(told.size() + AV_INPUT_BUFFER_PADDING_SIZE));
        std::memcpy(parameters.extradata, told.data(), told.size());
        parameters.extradata_size = static_cast<int>(told.size());
        stream->time_base = {1, 50};
        require(avio_open(&opened->pb, path.c_str(), AVIO_FLAG_WRITE) >= 0);
        require(avformat_write_header(opened, nullptr) >= 0);
    }
    /// In fields; a negative time is none.
    void write(const Bytes& bytes, int shown, int decoded, int length, bool key) {
        const std::unique_ptr<AVPacket, FreePacket> packet(av_packet_alloc());
        require(packet && av_new_packet(packet.get(), static_cast<int>(bytes.size())) >= 0);
        std::memcpy(packet->data, bytes.data(), bytes.size());
        packet->pts = shown < 0 ? AV_NOPTS_VALUE : shown;
        packet->dts = shown < 0 ? AV_NOPTS_VALUE : decoded;
        packet->duration = length;
        packet->flags = key ? AV_PKT_FLAG_KEY : 0;
        av_packet_rescale_ts(packet.get(), {1, 50}, stream->time_base);
        require(av_write_frame(context.get(), packet.get()) >= 0);
    }
    void finish() { require(av_write_trailer(context.get()) >= 0); }

private:
    std::unique_ptr<AVFormatContext, CloseOutput> context;
    AVStream* stream = nullptr;
};

} // namespace

void makeFieldPictures(const std::string& path, int width, int height, int fields, bool topFieldFirst,
                       FieldPackets packets) {
    Writer writer(path, width, height);
    int decoded = 0;
    for (const Frame& frame : framesOf(fields / 2)) {
        const bool key = frame.shown == frame.group;
        const int shown = 2 * frame.shown + 2;
        Bytes first = codedField(frame, 0, topFieldFirst, width, height);
        const Bytes second = codedField(frame, 1, topFieldFirst, width, height);
        if (packets == FieldPackets::Together) {
            first.insert(first.end(), second.begin(), second.end());
            writer.write(first, shown, decoded, 2, key);
        } else {
            const bool timed = packets == FieldPackets::Apart;
            writer.write(first, shown, decoded, 1, key);
            writer.write(second, timed ? shown + 1 : -1, decoded + 1, 1, false);
        }
        decoded += 2;
    }
    writer.finish();
}

} // namespace TestMedia
