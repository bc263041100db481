// SPDX-License-Identifier: GPL-3.0-or-later
// What becomes of a pass whose codec is still opening when the export is over.
#include "Kestra/Util/TemporaryDir.h"
#include "ScratchPlace.h"
#include "WatchedJob.h"
#include "fakes/kestra/Gate.h"
#include "fakes/streams/ExportDriver.h"
#include "fakes/streams/SyntheticVideo.h"
#include "support/FileHelpers.h"
#include <QDir>
#include <QFileInfo>
#include <array>
#include <cstring>
#include <dlfcn.h>
#include <future>
#include <gtest/gtest.h>
#include <mutex>
#include <pthread.h>

extern "C" {
#include <libavcodec/avcodec.h>
}

using ExportCore::ExportOutcome;
using Kestra::Conf::IFormatCodec;
using Kestra::Fakes::Gate;
using Kestra::Proc::IEncoder;
using TestSupport::waitUntil;
using namespace std::chrono_literals;

namespace {

std::mutex mutex;
std::shared_ptr<Gate> gateOfCodecs; ///< before each encoder of pictures that opens in two passes
int openingsBefore = 0;

std::shared_ptr<Gate> gateToPass(const AVCodecContext& context) {
    const std::lock_guard<std::mutex> lock(mutex);
    const bool counts = context.codec_type == AVMEDIA_TYPE_VIDEO && av_codec_is_encoder(context.codec);
    return counts && gateOfCodecs && openingsBefore-- <= 0 ? gateOfCodecs : nullptr;
}

/// As long as it lives, encoders of pictures open once the gate is open; the first ones as if there were none.
class HeldOpening {
public:
    explicit HeldOpening(int unhindered = 0) {
        const std::lock_guard<std::mutex> lock(mutex);
        openingsBefore = unhindered;
        gateOfCodecs = gate;
    }
    ~HeldOpening() {
        gate->Open();
        const std::lock_guard<std::mutex> lock(mutex);
        gateOfCodecs.reset();
    }
    HeldOpening(const HeldOpening&) = delete;
    HeldOpening& operator=(const HeldOpening&) = delete;

    const std::shared_ptr<Gate> gate = std::make_shared<Gate>();
};

int threads() {
    return QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
}

class CodecOpening : public ::testing::TestWithParam<const char*> {
protected:
    boost::intrusive_ptr<IEncoder> encoder(bool firstPass) const {
        Kestra::Proc::SettingsTwoPassEncoding settings;
        settings.SetLogFile(logs.toStdString() + "/1.log");
        settings.firstPass = firstPass;
        auto description = Fakes::Description(GetParam());
        description.SetChild(IFormatCodec::TAG_BITRATE_MODE, std::string("vbr"));
        description.SetChild(IFormatCodec::TAG_BITRATE, std::int64_t{100'000});
        Fakes::VideoShape shape;
        shape.width = shape.height = 64;
        shape.frames = 10;
        auto made = Fakes::VideoEncoder(Fakes::MakeVideo(shape), description);
        made->Initialize(IEncoder::Settings2Property(settings));
        return made;
    }
    /// The folder goes while the codec opens.
    void openWithoutFolder(bool firstPass) {
        const int before = threads();
        auto opening = encoder(firstPass);
        const HeldOpening held;
        auto opened = std::async(std::launch::async, [&opening] { opening->Prepare(); });
        ASSERT_TRUE(held.gate->WaitUntilReached());
        const QString path = folder->path();
        folder.reset();
        EXPECT_TRUE(QFileInfo::exists(path));
        held.gate->Open();
        EXPECT_NO_THROW(opened.get());
        EXPECT_FALSE(QFileInfo::exists(path));
        opening.reset();
        EXPECT_TRUE(waitUntil([before] { return threads() <= before; }, 10'000)) << threads() - before << " stay";
    }

    std::unique_ptr<Kestra::Util::TemporaryDir> folder = std::make_unique<Kestra::Util::TemporaryDir>();
    const QString logs = folder->path() + QStringLiteral("/two_pass");
};

class OpeningOfJob : public ::testing::Test, protected TestExport::WatchedJob {
protected:
    OpeningOfJob() { TestMedia::makeFlashBeep(media / "clip.mov", {}); }

    const TestMedia::Folder media;
};

} // namespace

TEST_P(CodecOpening, OfAFirstPassFindsTheFolderThatGoesMeanwhileAndLeavesNoThread) {
    ASSERT_TRUE(QDir().mkpath(logs));
    openWithoutFolder(true);
}

TEST_P(CodecOpening, OfASecondPassFindsTheStatisticsThatGoMeanwhileAndLeavesNoThread) {
    ASSERT_TRUE(QDir().mkpath(logs));
    Fakes::ReadAll(*encoder(true));
    openWithoutFolder(false);
}

INSTANTIATE_TEST_SUITE_P(Codecs, CodecOpening, ::testing::Values("h264", "hevc"),
                         [](const auto& testCase) { return std::string(testCase.param); });

TEST_F(OpeningOfJob, KeepsNoStopFromComingToItsEndAndTheFolderGoesAfterIt) {
    const TestExport::ScratchPlace scratch;
    const int before = threads();
    const HeldOpening held(1);
    start(media / "clip.mov", "mp4-h264-1080p-2pass", {});
    ASSERT_TRUE(waitUntil([&held] { return held.gate->WaitUntilReached(0ms); }));
    job->stop();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(outcome.status, ExportOutcome::Status::Stopped);
    job.reset();
    EXPECT_EQ(scratch.names().size(), 1);
    held.gate->Open();
    EXPECT_TRUE(waitUntil([&] { return scratch.names().isEmpty() && threads() <= before; }, 10'000))
        << threads() - before << " threads stay";
}

/// In place of the codecs' own: the definition in the program comes first.
extern "C" __attribute__((visibility("default"))) int avcodec_open2(AVCodecContext* context, const AVCodec* codec,
                                                                    AVDictionary** options) {
    using Open = int (*)(AVCodecContext*, const AVCodec*, AVDictionary**);
    static const auto open = reinterpret_cast<Open>(dlsym(RTLD_NEXT, "avcodec_open2"));
    if (const auto gate = gateToPass(*context))
        gate->Pass();
    return open(context, codec, options);
}
