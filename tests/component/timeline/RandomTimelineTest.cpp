// SPDX-License-Identifier: GPL-3.0-or-later
// Random timelines, rendered by the engine: every frame and every sample is what the cut says.
#include "RandomTimeline.h"
#include "Kestra/Base/Time.h"
#include "Kestra/Conf/Draft.h"
#include "Kestra/FF/Data/DataAudioFF.h"
#include "Kestra/FF/Data/DataVideoFF.h"
#include "ReferencePictures.h"
#include "ReferenceSound.h"
#include "Render/Streams.h"
#include "Timeline/Reader/OtioReader.h"
#include "TimelineText.h"
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <sstream>
#include <stdexcept>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace TimelineTests {
namespace {

using Kestra::FrameGrid;
using Kestra::FrameIndex;
using Kestra::Ticks;
using Kestra::Conf::Draft;

/// What is looked for is the same in every run, unless the environment says otherwise.
const int PARAMETERS = ::setenv("RC_PARAMS", "seed=20261 max_success=200", 0);
/// A file that a failure has told: it is looked at in place of any other.
const char* const REPLAYED = "EDITOREXPORT_TIMELINE";

struct Shown {
    Render::Sequence sequence;
    Render::Window window;
};

rc::Gen<Choices> anyChoices() {
    constexpr int MOST = 800;
    const auto number = rc::gen::inRange<std::uint32_t>(0, UINT32_MAX);
    return rc::gen::resize(MOST, rc::gen::container<Choices>(rc::gen::resize(rc::kNominalSize, number)));
}

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

    /// Of timelines by chance, or of the one that is replayed, `trouble` tells none.
    template <class Trouble>
    static void expectNone(const std::string& promise, const Trouble& trouble) {
        if (const char* const path = std::getenv(REPLAYED)) {
            const std::string found = trouble(shownOf(read(path)));
            EXPECT_EQ(found, "");
            return;
        }
        EXPECT_TRUE(rc::check(promise, [&trouble] {
            const std::string text = randomText(*anyChoices());
            const auto document = read(media->fileOf("random.otio", text));
            if (textOf(*document) != text)
                RC_FAIL("read otherwise than it was written:\n" + text + textOf(*document));
            const std::string found = trouble(shownOf(document));
            if (!found.empty())
                RC_FAIL(found + "\nTo see it again, put this in a file that " + REPLAYED + " names:\n" + text);
        }));
    }

    static inline std::unique_ptr<KnownMedia> media;
    static inline std::shared_ptr<Render::MediaPool> opened;

private:
    /// Its name says at which rate it is seen, and from which time on.
    static std::string randomText(const Choices& choices) {
        static const Rate rates[] = {25, {24000, 1001}, 30, 50};
        RandomTimeline chance(*media, choices);
        const Rate& rate = rates[chance.upTo(std::size(rates) - 1)];
        auto document = std::make_shared<Timeline::Document>(*chance.document(rate));
        const Ticks start(chance.upTo(2) < 2 ? 0 : chance.upTo(document->duration().Value() / 2));
        std::ostringstream name;
        name << rate << ' ' << start.Value();
        document->name = name.str();
        return textOf(*document);
    }
    static std::shared_ptr<const Timeline::Document> read(const std::string& path) {
        Timeline::ReadingOptions options;
        options.mediaRoot = Kestra::ioPath(media->folderPath());
        const Timeline::Reading reading = Timeline::OtioReader().read(Kestra::ioPath(path), options);
        if (!reading.document)
            throw std::runtime_error("the timeline cannot be read");
        return reading.document;
    }
    static Shown shownOf(const std::shared_ptr<const Timeline::Document>& document) {
        std::istringstream name(document->name);
        Rate rate;
        std::int64_t start = 0;
        name >> rate >> start;
        const FrameGrid grid(rate);
        const Render::Window part(Ticks(start), document->duration(), grid);
        const Render::Window whole(Ticks(0), document->duration(), grid);
        return {Render::Sequence::of(document, opened), part.isEmpty() ? whole : part};
    }
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

struct PicturesTold {
    int blended = 0; ///< timelines
    long long pixels = 0;
    long long frames = 0;
};

std::string troubleWith(const AVFrame& frame, ReferencePictures& reference, FrameIndex number, PicturesTold& told) {
    for (int y = 0; y < frame.height; y += 2)
        for (int x = 0; x < frame.width; x += 3) {
            const auto expected = reference.at(number, x, y);
            if (!expected)
                continue;
            ++told.pixels;
            const Colour found = colourAt(frame, x, y);
            if (difference(found, *expected) <= 3)
                continue;
            std::ostringstream text;
            text << "frame " << number.Value() << " at " << x << ',' << y << ": " << found.y << ' ' << found.u << ' '
                 << found.v << " in place of " << expected->y << ' ' << expected->u << ' ' << expected->v;
            return text.str();
        }
    return {};
}

std::string troubleWithPictures(const KnownMedia& media, const Shown& shown, PicturesTold& told) {
    const auto stream = Render::createPictureStream(shown.sequence, shown.window,
                                                    {ReferencePictures::WIDTH, ReferencePictures::HEIGHT, 16, 9});
    const FrameGrid& grid = *shown.window.grid();
    ReferencePictures reference(media, *shown.sequence.document, grid);
    FrameIndex next(0);
    while (const auto picture = stream->ReadVideo()) {
        if (picture->GetTime() != grid.Begin(next).Value())
            return "frame " + std::to_string(next.Value()) + " comes at another time";
        const FrameIndex number = shown.window.firstFrame() + next;
        if (const auto trouble = troubleWith(Kestra::FF::FrameOf(*picture), reference, number, told); !trouble.empty())
            return trouble;
        ++next;
    }
    if (next != grid.Nearest(shown.sequence.document->duration() - grid.Begin(shown.window.firstFrame())))
        return std::to_string(next.Value()) + " frames came";
    told.blended += reference.hasBlended() ? 1 : 0;
    told.frames += next.Value();
    return {};
}

TEST_F(RandomTimelines, ShowInEveryFrameWhatTheCutSays) {
    PicturesTold told;
    expectNone("each frame is what the cut says",
               [&told](const Shown& shown) { return troubleWithPictures(*media, shown, told); });
    if (std::getenv(REPLAYED))
        return;
    EXPECT_GT(told.blended, 60);
    EXPECT_GT(told.pixels, 50 * told.frames) << "too few pixels could be told";
}

/// Whole pictures of the medium, from its third on, for `lengths` of its own periods each.
Timeline::Track cutsOf(const KnownPictures& medium, const std::vector<int>& lengths) {
    const FrameGrid own(medium.rate);
    std::vector<Timeline::Item> items;
    for (const int length : lengths) {
        Timeline::Clip clip;
        clip.media = {"", Timeline::MediaFile{Kestra::ioPath(medium.path)}, {}};
        clip.origin = Ticks(0);
        clip.excerpt.start = own.Begin(FrameIndex(2));
        Timeline::Item item;
        item.duration = own.Length(FrameIndex(length));
        item.content = std::move(clip);
        items.push_back(std::move(item));
    }
    return Timeline::Track(Timeline::Track::Kind::Video, "", true, std::move(items));
}

TEST_F(RandomTimelines, ShowNoPictureBehindTheRangeOfAClipWhereRatesDiffer) {
    PicturesTold told;
    for (const KnownPictures& medium : media->pictures())
        for (const Rate& rate : {Rate(25), Rate(24000, 1001), Rate(30), Rate(50)}) {
            auto document = std::make_shared<Timeline::Document>();
            document->tracks = std::make_shared<Timeline::Stack>(
                "", std::vector<Timeline::Track>{cutsOf(medium, {7, 3, 4, 2, 5, 3, 2})});
            const Render::Window window(Ticks(0), document->duration(), FrameGrid(rate));
            EXPECT_EQ(troubleWithPictures(*media, {Render::Sequence::of(document, opened), window}, told), "")
                << medium.id << " of " << medium.rate << " at " << rate;
        }
    EXPECT_GT(told.pixels, 10 * told.frames);
}

void prefer(Kestra::Proc::IStreamVideo& stream, const std::optional<Draft>& draft) {
    boost::intrusive_ptr<Kestra::Conf::IFormatCodecVideo> format;
    stream.GetVideoFormat(format);
    EXPECT_FALSE(Draft::Of(*format));
    Draft::TellIn(*format, draft);
    stream.PreferFormat(*format);
}

/// What the whole shows there, if all that a pixel of half the size is made of is alike.
std::optional<Colour> expectedInHalf(ReferencePictures& reference, FrameIndex number, int x, int y) {
    std::optional<Colour> all;
    for (const int across : {2 * x - 4, 2 * x + 5})
        for (const int down : {2 * y - 4, 2 * y + 5}) {
            const auto one = reference.at(number, across, down);
            if (!one || (all && difference(*one, *all) > 2))
                return std::nullopt;
            all = one;
        }
    return all;
}

std::string troubleWithHalf(const AVFrame& frame, ReferencePictures& reference, FrameIndex number, PicturesTold& told) {
    for (int y = 2; y < frame.height - 2; ++y)
        for (int x = 2; x < frame.width - 2; ++x) {
            const auto expected = expectedInHalf(reference, number, x, y);
            told.pixels += expected ? 1 : 0;
            if (expected && difference(colourAt(frame, x, y), *expected) > 5)
                return "draft " + std::to_string(number.Value()) + " at " + std::to_string(x) + ',' + std::to_string(y);
        }
    return {};
}

/// A first reading in drafts and a second one in whole pictures.
std::string troubleWithDrafts(const KnownMedia& media, const Shown& shown, PicturesTold& told) {
    const Draft half{ReferencePictures::WIDTH / 2, ReferencePictures::HEIGHT / 2};
    const auto stream = Render::createPictureStream(shown.sequence, shown.window,
                                                    {ReferencePictures::WIDTH, ReferencePictures::HEIGHT, 16, 9});
    ReferencePictures reference(media, *shown.sequence.document, *shown.window.grid());
    prefer(*stream, half);
    PicturesTold ofWhole;
    std::string trouble;
    FrameIndex drafts(0), whole(0);
    while (const auto picture = stream->ReadVideo()) {
        const AVFrame& frame = Kestra::FF::FrameOf(*picture);
        // Black where nothing is seen is no work in any size.
        const bool isHalf = frame.width == static_cast<int>(half.width);
        if (isHalf && trouble.empty())
            trouble = troubleWithHalf(frame, reference, shown.window.firstFrame() + drafts, told);
        told.frames += isHalf ? 1 : 0;
        ++drafts;
    }
    stream->Reset();
    prefer(*stream, std::nullopt);
    while (const auto picture = stream->ReadVideo()) {
        const AVFrame& frame = Kestra::FF::FrameOf(*picture);
        if (frame.width != ReferencePictures::WIDTH)
            return "drafts are left";
        if (trouble.empty())
            trouble = troubleWith(frame, reference, shown.window.firstFrame() + whole, ofWhole);
        ++whole;
    }
    told.blended += reference.hasBlended() ? 1 : 0;
    return drafts == whole ? trouble : "there are not as many drafts as whole frames";
}

TEST_F(RandomTimelines, ShowTheSameInDraftsAndThenWhole) {
    PicturesTold told;
    expectNone("drafts show what the cut says",
               [&told](const Shown& shown) { return troubleWithDrafts(*media, shown, told); });
    if (std::getenv(REPLAYED))
        return;
    EXPECT_GT(told.blended, 60);
    EXPECT_GT(told.frames, 1000) << "too few were drafts";
    EXPECT_GT(told.pixels, told.frames) << "too few pixels could be told";
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
        if (block->GetTime() != grid.Begin(Kestra::SampleIndex(static_cast<std::int64_t>(all.size()))).Value())
            throw std::runtime_error("a block comes at another time");
        const AVFrame& frame = Kestra::FF::FrameOf(*block);
        const auto* const left = reinterpret_cast<const float*>(frame.extended_data[0]);
        const auto* const right = reinterpret_cast<const float*>(frame.extended_data[1]);
        if (!std::equal(left, left + frame.nb_samples, right))
            throw std::runtime_error("the channels differ");
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

struct SoundTold {
    long long samples = 0;
    long long all = 0;
    int otherSpeeds = 0; ///< stretches
};

std::string troubleWithSamples(const std::vector<float>& samples, const ReferenceSound& reference, SoundTold& told) {
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const auto expected = reference.at(static_cast<long long>(i));
        if (!expected)
            continue;
        ++told.samples;
        if (std::abs(samples[i] - expected->value) > expected->tolerance)
            return "sample " + std::to_string(i) + " of " + std::to_string(samples.size()) + ": " +
                   std::to_string(samples[i]) + " in place of " + std::to_string(expected->value);
    }
    return {};
}

std::string troubleWithTones(const std::vector<float>& samples, const KnownMedia& media,
                             const ReferenceSound& reference, SoundTold& told) {
    for (std::size_t first = 0; first + STRETCH <= samples.size(); first += STRETCH / 2) {
        const auto begin = static_cast<long long>(first);
        const auto tones = reference.tonesIn(begin, begin + STRETCH);
        if (!tones)
            continue;
        told.otherSpeeds += reference.hasOtherSpeedAt(begin) ? 1 : 0;
        for (const auto& [id, loudness] : *tones) {
            const double frequency = media.sounds()[static_cast<std::size_t>(id)].frequency();
            const double found = loudnessOf(frequency, &samples[first]);
            if (std::abs(found - loudness) > 0.3 * LOUDNESS)
                return "tone " + std::to_string(id) + " from sample " + std::to_string(first) +
                       " on: " + std::to_string(found) + " in place of " + std::to_string(loudness);
        }
    }
    return {};
}

std::string troubleWithSound(const KnownMedia& media, const Shown& shown, SoundTold& told) {
    const Kestra::SampleGrid grid(SAMPLE_RATE);
    const auto stream = Render::createSoundStream(shown.sequence, shown.window, soundFormat());
    const std::vector<float> samples = samplesOf(*stream, grid);
    const Ticks length = shown.sequence.document->duration() - shown.window.start();
    if (static_cast<std::int64_t>(samples.size()) != grid.Nearest(length).Value())
        return std::to_string(samples.size()) + " samples came";
    told.all += static_cast<long long>(samples.size());
    const ReferenceSound reference(media, *shown.sequence.document, shown.window, grid);
    const std::string trouble = troubleWithSamples(samples, reference, told);
    return trouble.empty() ? troubleWithTones(samples, media, reference, told) : trouble;
}

TEST_F(RandomTimelines, SoundInEverySampleAsTheCutSays) {
    SoundTold told;
    expectNone("each sample is what the cut says",
               [&told](const Shown& shown) { return troubleWithSound(*media, shown, told); });
    if (std::getenv(REPLAYED))
        return;
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
