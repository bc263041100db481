// Random timelines, rendered by the engine: every frame and every sample is what the cut says.
#include "RandomTimeline.h"
#include "Kestra/Base/Time.h"
#include "Kestra/FF/Data/DataAudioFF.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include "ReferencePictures.h"
#include "ReferenceSound.h"
#include "Render/Streams.h"
#include <cmath>
#include <gtest/gtest.h>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace TimelineTests {
namespace {

using Kestra::FrameGrid;
using Kestra::FrameIndex;
using Kestra::Ticks;

constexpr unsigned TIMELINES = 200;

struct Shown {
    Render::Sequence sequence;
    Render::Window window;
};

class RandomTimelines : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        media = std::make_unique<KnownMedia>();
        opened = std::make_shared<Render::MediaPool>();
    }
    static void TearDownTestSuite() {
        opened.reset();
        media.reset();
    }

    /// The whole of a random timeline, or what there is from some frame on.
    static Shown randomly(unsigned seed) {
        static const Rate rates[] = {25, {24000, 1001}, 30, 50};
        RandomTimeline chance(*media, seed);
        const FrameGrid grid(rates[seed % std::size(rates)]);
        const auto document = chance.document(grid.GetRate());
        const Ticks end = document->duration();
        const Ticks start = chance.upTo(2) > 0 ? Ticks(0) : Ticks(chance.upTo(end.Value() / 2));
        const Render::Window part(start, end, grid);
        return {Render::Sequence::of(document, opened), part.isEmpty() ? Render::Window(Ticks(0), end, grid) : part};
    }

    static inline std::unique_ptr<KnownMedia> media;
    static inline std::shared_ptr<Render::MediaPool> opened;
};

double componentAt(const AVFrame& frame, int number, int x, int y) {
    const AVPixFmtDescriptor& format = *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
    const bool chroma = number == 1 || number == 2;
    const AVComponentDescriptor& component = format.comp[number];
    const std::uint8_t* const row =
        frame.data[component.plane] + (chroma ? y >> format.log2_chroma_h : y) * frame.linesize[component.plane];
    const int column = chroma ? x >> format.log2_chroma_w : x;
    const int value = component.depth > 8 ? reinterpret_cast<const std::uint16_t*>(row)[column] : row[column];
    return value / std::ldexp(1, component.depth - 8);
}

/// Over black where it is transparent.
Colour colourAt(const AVFrame& frame, int x, int y) {
    const AVPixFmtDescriptor& format = *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
    const double alpha = (format.flags & AV_PIX_FMT_FLAG_ALPHA) != 0 ? componentAt(frame, 3, x, y) / 255 : 1;
    return {16 + alpha * (componentAt(frame, 0, x, y) - 16), 128 + alpha * (componentAt(frame, 1, x, y) - 128),
            128 + alpha * (componentAt(frame, 2, x, y) - 128), 1};
}

double difference(const Colour& a, const Colour& b) {
    return std::max({std::abs(a.y - b.y), std::abs(a.u - b.u), std::abs(a.v - b.v)});
}

/// How many pixels could be told.
int expectFrame(const AVFrame& frame, ReferencePictures& reference, FrameIndex number) {
    int told = 0;
    for (int y = 0; y < frame.height; y += 2)
        for (int x = 0; x < frame.width; x += 3) {
            const auto expected = reference.at(number, x, y);
            if (!expected)
                continue;
            ++told;
            const Colour found = colourAt(frame, x, y);
            if (difference(found, *expected) <= 3)
                continue;
            ADD_FAILURE() << "frame " << number.Value() << " at " << x << ',' << y << ": " << found.y << ' ' << found.u
                          << ' ' << found.v << " in place of " << expected->y << ' ' << expected->u << ' '
                          << expected->v;
            return told;
        }
    return told;
}

struct PicturesTold {
    int blended = 0; ///< timelines
    long long pixels = 0;
    long long frames = 0;
};

void expectPictures(const KnownMedia& media, const Shown& shown, PicturesTold& told) {
    const auto stream = Render::createPictureStream(shown.sequence, shown.window,
                                                    {ReferencePictures::WIDTH, ReferencePictures::HEIGHT, 16, 9});
    const FrameGrid& grid = *shown.window.grid();
    ReferencePictures reference(media, *shown.sequence.document, grid);
    FrameIndex next(0);
    while (const auto picture = stream->ReadVideo()) {
        ASSERT_EQ(picture->GetTime(), grid.Begin(next).Value());
        told.pixels += expectFrame(Kestra::FF::FrameOf(*picture), reference, shown.window.firstFrame() + next);
        ++next;
        if (::testing::Test::HasFailure())
            return;
    }
    EXPECT_EQ(next, grid.Nearest(shown.sequence.document->duration() - grid.Begin(shown.window.firstFrame())));
    told.blended += reference.hasBlended() ? 1 : 0;
    told.frames += next.Value();
}

TEST_F(RandomTimelines, ShowInEveryFrameWhatTheCutSays) {
    PicturesTold told;
    for (unsigned seed = 0; seed < TIMELINES && !HasFailure(); ++seed) {
        const Shown shown = randomly(seed);
        SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + describe(*shown.sequence.document));
        EXPECT_NO_THROW(expectPictures(*media, shown, told));
    }
    EXPECT_GT(told.blended, 60);
    EXPECT_GT(told.pixels, 50 * told.frames) << "too few pixels could be told";
}

constexpr int SAMPLE_RATE = 8000;
/// Samples in which a tone is looked for.
constexpr int STRETCH = 320;

Kestra::Conf::SampleInfo soundFormat() {
    Kestra::Conf::SampleInfo format;
    format.Init(Kestra::Conf::SAMPLE_FORMAT_FLTP, SAMPLE_RATE, Kestra::Conf::CHANNEL_LAYOUT_STEREO);
    return format;
}

/// Of the first channel; the other one is the same.
std::vector<float> samplesOf(Kestra::Proc::IStreamAudio& stream, const Kestra::SampleGrid& grid) {
    std::vector<float> all;
    while (const auto block = stream.ReadAudio()) {
        EXPECT_EQ(block->GetTime(), grid.Begin(Kestra::SampleIndex(static_cast<std::int64_t>(all.size()))).Value());
        const AVFrame& frame = Kestra::FF::FrameOf(*block);
        const auto* const left = reinterpret_cast<const float*>(frame.extended_data[0]);
        const auto* const right = reinterpret_cast<const float*>(frame.extended_data[1]);
        EXPECT_TRUE(std::equal(left, left + frame.nb_samples, right));
        all.insert(all.end(), left, left + frame.nb_samples);
    }
    return all;
}

/// How loud the tone of that frequency is in a stretch that fades in and out.
double loudnessOf(double frequency, const float* samples) {
    constexpr double FULL_TURN = 6.28318530717958647692;
    double real = 0, imaginary = 0, weights = 0;
    for (int i = 0; i < STRETCH; ++i) {
        const double weight = 0.5 - 0.5 * std::cos(FULL_TURN * (i + 0.5) / STRETCH);
        real += weight * samples[i] * std::cos(FULL_TURN * frequency * i / SAMPLE_RATE);
        imaginary += weight * samples[i] * std::sin(FULL_TURN * frequency * i / SAMPLE_RATE);
        weights += weight;
    }
    return 2 * std::hypot(real, imaginary) / weights;
}

/// How many samples could be told.
long long expectSamples(const std::vector<float>& samples, const ReferenceSound& reference) {
    long long told = 0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const auto expected = reference.at(static_cast<long long>(i));
        if (!expected)
            continue;
        ++told;
        if (std::abs(samples[i] - expected->value) <= expected->tolerance)
            continue;
        ADD_FAILURE() << "sample " << i << " of " << samples.size() << ": " << samples[i] << " in place of "
                      << expected->value;
        return told;
    }
    return told;
}

/// How many stretches with sound of another speed could be told.
int expectTones(const std::vector<float>& samples, const KnownMedia& media, const ReferenceSound& reference) {
    int told = 0;
    for (std::size_t first = 0; first + STRETCH <= samples.size(); first += STRETCH / 2) {
        const auto begin = static_cast<long long>(first);
        const auto tones = reference.tonesIn(begin, begin + STRETCH);
        if (!tones)
            continue;
        told += reference.hasOtherSpeedAt(begin) ? 1 : 0;
        for (const auto& [id, loudness] : *tones) {
            EXPECT_NEAR(loudnessOf(media.sounds()[static_cast<std::size_t>(id)].frequency(), &samples[first]), loudness,
                        0.3 * LOUDNESS)
                << "tone " << id << " from sample " << first << " on";
        }
    }
    return told;
}

struct SoundTold {
    long long samples = 0;
    long long all = 0;
    int otherSpeeds = 0;
};

void expectSound(const KnownMedia& media, const Shown& shown, SoundTold& told) {
    const Kestra::SampleGrid grid(SAMPLE_RATE);
    const auto stream = Render::createSoundStream(shown.sequence, shown.window, soundFormat());
    const std::vector<float> samples = samplesOf(*stream, grid);
    EXPECT_EQ(Kestra::SampleIndex(static_cast<std::int64_t>(samples.size())),
              grid.Nearest(shown.sequence.document->duration() - shown.window.start()));
    const ReferenceSound reference(media, *shown.sequence.document, shown.window, grid);
    told.samples += expectSamples(samples, reference);
    told.otherSpeeds += expectTones(samples, media, reference);
    told.all += static_cast<long long>(samples.size());
}

TEST_F(RandomTimelines, SoundInEverySampleAsTheCutSays) {
    SoundTold told;
    for (unsigned seed = 0; seed < TIMELINES && !HasFailure(); ++seed) {
        const Shown shown = randomly(seed);
        SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + describe(*shown.sequence.document));
        EXPECT_NO_THROW(expectSound(*media, shown, told));
    }
    EXPECT_GT(told.samples, told.all / 2) << "too few samples could be told";
    EXPECT_GT(told.otherSpeeds, 20);
}

TEST_F(RandomTimelines, HearAStackAsOftenAsItStandsThere) {
    Timeline::Item tone;
    tone.duration = Ticks(Kestra::FramesToTime(10, 25));
    tone.content = Timeline::Clip{{"", Timeline::MediaFile{Kestra::ioPath(media->sounds().front().path)}, {}}, {}, {}};
    Timeline::Item stack;
    stack.duration = tone.duration;
    const Timeline::Track inner(Timeline::Track::Kind::Audio, "", true, {tone});
    stack.content = Timeline::Nested{std::make_shared<Timeline::Stack>("", std::vector<Timeline::Track>{inner}), {}};
    const Timeline::Track outer(Timeline::Track::Kind::Audio, "", true, {stack});
    const auto document = std::make_shared<Timeline::Document>();
    document->tracks = std::make_shared<Timeline::Stack>("", std::vector<Timeline::Track>{outer, outer});
    const Render::Window window(Ticks(0), document->duration(), std::nullopt);
    const auto stream = Render::createSoundStream(Render::Sequence::of(document, opened), window, soundFormat());
    const std::vector<float> samples = samplesOf(*stream, Kestra::SampleGrid(SAMPLE_RATE));
    ASSERT_EQ(samples.size(), 3200U);
    for (std::size_t i = 0; i < samples.size(); ++i)
        ASSERT_NEAR(samples[i], 2 * media->sounds().front().valueAt(static_cast<double>(i)), 1e-4) << i;
}

} // namespace
} // namespace TimelineTests
