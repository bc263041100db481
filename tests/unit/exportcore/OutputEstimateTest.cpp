// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/OutputEstimate.h"
#include "Export/PresetProvider.h"
#include "ExportCore/FileGrowth.h"
#include "ExportCore/FreeSpace.h"
#include "ExportCore/PresetEdit.h"
#include "ExportCore/SizeText.h"
#include "Kestra/Conf/SampleInfo.h"
#include "support/FileHelpers.h"
#include "support/WaitUntil.h"
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <optional>

using ExportCore::OutputEstimate;
using ExportCore::PresetEdit;
using ExportCore::PresetSettings;
using ExportCore::SizeText;

namespace {

class Estimate : public ::testing::Test {
protected:
    Estimate() {
        video.width = 1920;
        video.height = 1080;
        video.frameRateNumerator = 30;
        video.frameRateDenominator = 1;
        video.aspectNumerator = 16;
        video.aspectDenominator = 9;
        audio.channelLayout = Kestra::Conf::CHANNEL_LAYOUT_STEREO;
        audio.sampleRate = 48000;
        audio.sampleFormat = Kestra::Conf::SAMPLE_FORMAT_S16;
    }
    OutputEstimate of(const char* tag, const char* id, const std::vector<std::string>& settings = {}) {
        provider.emplace(nullptr);
        provider->selectTag(tag);
        provider->selectPreset(std::string(id));
        EXPECT_EQ(provider->preset().id(), id);
        PresetEdit{"", PresetSettings::parse(settings)}.apply(*provider, video, audio);
        return OutputEstimate::of(*provider, &video, &audio, duration);
    }

    std::optional<Export::PresetProvider> provider;
    Media::Video video;
    Media::Audio audio;
    KTime duration = KTime::fromSeconds(100);
};

TEST_F(Estimate, OfAnOrderedBitrateIsThatBitrateForTheWholeLength) {
    const OutputEstimate estimate = of("mp4", "mp4-h264-1080p", {"bitrate=4M", "audio-bitrate=128k"});
    EXPECT_EQ(estimate.videoBytes, 50'000'000);
    EXPECT_EQ(estimate.audioBytes, 1'600'000);
    EXPECT_FALSE(estimate.rough);
    EXPECT_GT(estimate.sizeBytes, 51'600'000);
    EXPECT_LT(estimate.sizeBytes, 51'600'000 + 200'000) << "what the container tells of itself";
}

TEST_F(Estimate, OfAnAutomaticBitrateIsThatOfSizeAndRate) {
    EXPECT_EQ(of("mp4", "mp4-h264-1080p").videoBytes, 100'000'000) << "8 Mbit/s, see docs/bitrates.md";
    EXPECT_FALSE(of("mp4", "mp4-h264-1080p").rough);
    EXPECT_LT(of("mp4", "mp4-h264-720p").videoBytes, 60'000'000);
}

TEST_F(Estimate, CountsFramesToTheLast) {
    video.frameRateNumerator = 30000;
    video.frameRateDenominator = 1001;
    duration = KTime(1001);
    EXPECT_EQ(of("mp4", "mp4-h264-1080p").frames, 30);
    EXPECT_EQ(of("mp4", "mp4-h264-1080p", {"frame-rate=25"}).frames, 25);
}

TEST_F(Estimate, OfAQualityIsRoughAndHalvesWithEverySixStepsOfH264) {
    const OutputEstimate fine = of("mp4", "mp4-h264-1080p", {"quality=21"});
    const OutputEstimate coarse = of("mp4", "mp4-h264-1080p", {"quality=27"});
    EXPECT_TRUE(fine.rough && coarse.rough);
    EXPECT_EQ(fine.videoBytes, 100'000'000);
    EXPECT_EQ(coarse.videoBytes, 50'000'000);
}

TEST_F(Estimate, OfAQuantiserFallsAsItsNumberGrows) {
    const OutputEstimate fine = of("mp4", "mp4-mpeg4-720p", {"quality=3"});
    const OutputEstimate coarse = of("mp4", "mp4-mpeg4-720p", {"quality=6"});
    EXPECT_NEAR(static_cast<double>(coarse.videoBytes), static_cast<double>(fine.videoBytes) / 2, 1);
}

TEST_F(Estimate, OfAProfileGoesByTheProfile) {
    const OutputEstimate best = of("editing", "mov-prores-1080p");
    EXPECT_TRUE(best.rough);
    EXPECT_NEAR(static_cast<double>(best.videoBytes) * 8 / 100, 220e6, 2e6) << "bit/s of ProRes 422 HQ";
}

TEST_F(Estimate, LearnsFromAPartThatWasMadeWhereTheMaterialDecides) {
    const OutputEstimate guessed = of("mp4", "mp4-h264-1080p", {"quality=21"});
    OutputEstimate learnt = guessed;
    learnt.learn(1000, 0.1);
    EXPECT_EQ(learnt.sizeBytes, guessed.sizeBytes) << "a beginning says nothing";
    learnt.learn(1000, 0.25);
    EXPECT_EQ(learnt.sizeBytes, 4000);
    EXPECT_TRUE(learnt.rough);
    learnt.learn(3'000'000, 0.1);
    EXPECT_EQ(learnt.sizeBytes, 30'000'000);
    const auto share = [](const OutputEstimate& estimate) {
        return static_cast<double>(estimate.videoBytes) / static_cast<double>(estimate.sizeBytes);
    };
    EXPECT_NEAR(share(learnt), share(guessed), 0.001);
    OutputEstimate ordered = of("mp4", "mp4-h264-1080p");
    ordered.learn(3'000'000, 0.5);
    EXPECT_EQ(ordered.sizeBytes, of("mp4", "mp4-h264-1080p").sizeBytes);
    ordered.know(1234);
    EXPECT_EQ(ordered.sizeBytes, 1234);
    learnt.know(-1);
    EXPECT_EQ(learnt.sizeBytes, 30'000'000) << "nobody could look";
    learnt.know(1234);
    EXPECT_EQ(learnt.sizeBytes, 1234);
    EXPECT_FALSE(learnt.rough);
}

TEST_F(Estimate, OfWebPGrowsWithItsQualityAndIsLargestWithoutLoss) {
    const OutputEstimate usual = of("web", "webp-webp-720p");
    EXPECT_TRUE(usual.rough);
    EXPECT_EQ(usual.videoBytes, 150'000'000) << "27 Mbit/s at 1080p";
    EXPECT_EQ(of("web", "webp-webp-720p", {"quality=100"}).videoBytes, 424'264'069);
    EXPECT_EQ(of("web", "webp-webp-720p", {"quality=50"}).videoBytes, 106'066'017);
    PresetEdit{"best", {}}.apply(*provider, video, audio);
    EXPECT_EQ(OutputEstimate::of(*provider, &video, &audio, duration).videoBytes, 1'230'000'000);
    EXPECT_EQ(usual.audioBytes, 0);
}

TEST_F(Estimate, OfSoundWithoutLossGoesByItsSamples) {
    const OutputEstimate wav = of("audio", "wav");
    EXPECT_EQ(wav.audioBytes, 48'000 * 2 * 2 * 100);
    EXPECT_EQ(wav.videoBytes, 0);
    EXPECT_EQ(wav.frames, 0);
    EXPECT_FALSE(wav.rough);
    EXPECT_TRUE(wav.exact);
    const OutputEstimate flac = of("audio", "flac");
    EXPECT_TRUE(flac.rough);
    EXPECT_FALSE(flac.exact);
    EXPECT_LT(flac.audioBytes, wav.audioBytes);
    EXPECT_GT(flac.audioBytes, wav.audioBytes / 3);
}

TEST_F(Estimate, OfSoundThatWasCodedWithLossCountsSixteenBits) {
    audio.sampleFormat = Kestra::Conf::SAMPLE_FORMAT_FLTP;
    const OutputEstimate wav = of("audio", "wav");
    EXPECT_EQ(wav.audioBytes, 48'000 * 2 * 2 * 100);
    EXPECT_TRUE(wav.rough) << "true floating point takes twice as much";
    EXPECT_FALSE(wav.exact);
}

TEST_F(Estimate, OfABitrateThatIsAQualityIsRough) {
    const OutputEstimate vorbis = of("audio", "ogg-vorbis");
    EXPECT_TRUE(vorbis.rough);
    EXPECT_GT(vorbis.audioBytes, 0);
    const OutputEstimate film = of("mp4", "mp4-h264-1080p", {"bitrate=4M"});
    EXPECT_FALSE(film.rough);
    EXPECT_FALSE(film.exact);
}

TEST_F(Estimate, CountsEachTrackOfSound) {
    const OutputEstimate one = of("mp4", "mp4-h264-1080p");
    const OutputEstimate three = OutputEstimate::of(*provider, &video, &audio, duration, 3);
    EXPECT_EQ(three.audioBytes, 3 * one.audioBytes);
    EXPECT_EQ(three.videoBytes, one.videoBytes);
    EXPECT_GT(three.sizeBytes, one.sizeBytes + 2 * one.audioBytes) << "their packets, too";
}

TEST_F(Estimate, CountsNothingForWhatIsNotThere) {
    of("mp4", "mp4-h264-1080p");
    const OutputEstimate silent = OutputEstimate::of(*provider, &video, nullptr, duration);
    EXPECT_EQ(silent.audioBytes, 0);
    EXPECT_GT(silent.videoBytes, 0);
    EXPECT_EQ(OutputEstimate::of(*provider, nullptr, &audio, duration).videoBytes, 0);
    EXPECT_EQ(OutputEstimate::of(*provider, &video, &audio, KTime(-1)).duration, KTime(0));
}

TEST(FreeSpace, IsThatOfTheFolderOfTheOutput) {
    const QTemporaryDir folder;
    const auto bytes = ExportCore::FreeSpace::beside(folder.filePath(QStringLiteral("film.mp4")));
    ASSERT_TRUE(bytes.has_value());
    EXPECT_GT(*bytes, 0);
    EXPECT_FALSE(ExportCore::FreeSpace::beside(folder.filePath(QStringLiteral("nowhere/film.mp4"))).has_value());
    EXPECT_TRUE(ExportCore::FreeSpace::beside(QStringLiteral("film.mp4")).has_value()) << "in the current folder";
    EXPECT_EQ(ExportCore::FreeSpace::beside(QStringLiteral("/proc/film.mp4")), 0);
}

TEST(FileGrowth, TellsTheSizeThatWasFoundLast) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("film"));
    TestFiles::write(path.toStdString(), QByteArray(1000, 'x'));
    ExportCore::FileGrowth growth(path.toUtf8());
    ASSERT_TRUE(TestSupport::waitUntil([&] { return growth.bytes() == 1000; }));
    TestFiles::write(path.toStdString(), QByteArray(3000, 'x'));
    ASSERT_TRUE(TestSupport::waitUntil([&] { return growth.bytes() == 3000; }));
    QFile::remove(path);
    EXPECT_EQ(growth.bytes(), 3000) << "what is gone was that large";
    ExportCore::FileGrowth none(path.toUtf8());
    EXPECT_EQ(none.bytes(), -1);
    EXPECT_EQ(none.bytesNow(), -1);
    TestFiles::write(path.toStdString(), QByteArray(5000, 'x'));
    EXPECT_EQ(growth.bytes(), 3000) << "it has just looked";
    EXPECT_EQ(growth.bytesNow(), 5000);
}

TEST(SizeText, HasThreeFiguresAndUnitsOfAThousand) {
    EXPECT_EQ(SizeText::format(0), "0 bytes");
    EXPECT_EQ(SizeText::format(1), "1 byte");
    EXPECT_EQ(SizeText::format(999), "999 bytes");
    EXPECT_EQ(SizeText::format(1'000), "1.00 kB");
    EXPECT_EQ(SizeText::format(9'995), "10.0 kB");
    EXPECT_EQ(SizeText::format(45'600'000), "45.6 MB");
    EXPECT_EQ(SizeText::format(789'400'000), "789 MB");
    EXPECT_EQ(SizeText::format(999'500'000), "1.00 GB");
    EXPECT_EQ(SizeText::format(9'223'372'036'854'775'807), "9.22 EB");
}

} // namespace
