#include "EditorProject/EditorProject.h"
#include "Export/PresetProvider.h"
#include "Export/Transcoder.h"
#include "fakes/editor/BusTrace.h"
#include "fakes/editor/TestCatalogue.h"
#include "support/FlashBeep.h"
#include "support/Golden.h"
#include "support/LogCapture.h"
#include "support/MediaProbe.h"
#include "support/WaitUntil.h"
#include <QFile>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>
#include <csignal>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <sys/resource.h>

namespace {

/// While it lives, no file of this process grows further: as on a full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit limit{bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
        handlerBefore = std::signal(SIGXFSZ, SIG_IGN);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handlerBefore);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit before = {};
    void (*handlerBefore)(int) = nullptr;
};

} // namespace

/// One export of a clip of two seconds by the engine that the product has. All that can be told from outside is added
/// to one list on this thread, as it happens.
class EngineTrace : public ::testing::Test {
protected:
    EngineTrace() {
        TestMedia::FlashBeep clip;
        clip.frames = 50;
        TestMedia::makeFlashBeep(folder / "clip.mov", clip);
        presets.load();
        project.open({Kestra::ioPath(folder / "clip.mov")});
        bus.onMessage = [this](const std::string& message) { hear(message); };
        log.onLine = [this](const TestSupport::LogLine& line) {
            add("log " + line.severity + ' ' + line.file + ':' + std::to_string(line.tag) + ' ' + line.text);
        };
    }
    ~EngineTrace() override {
        transcoder.reset();
        log.onLine = nullptr;
        bus.onMessage = nullptr;
    }

    void add(const std::string& line) { lines.push_back(line); }

    /// The project's own objects are older than the trace, so their owner answers a request before the trace hears it:
    /// only the answers keep their place.
    void hear(const std::string& message) {
        const bool late = message.find("bus Change composition") == 0 || message.find("bus Change fast track") == 0;
        if (!late)
            add(message);
    }

    void listen() {
        using Export::Transcoder;
        QObject::connect(transcoder.get(), &Transcoder::started, [this] { add("signal started"); });
        QObject::connect(transcoder.get(), &Transcoder::stopped, [this] {
            add("signal stopped");
            ended = true;
        });
        QObject::connect(transcoder.get(), &Transcoder::progressChanged, [this](int percent, KTime remaining) {
            percents.push_back(percent);
            // How often and how fast is the machine's affair; that it was told between two other things is not.
            if (lines.back() != "signal progress")
                add("signal progress");
            EXPECT_GE(remaining, KTime(-1));
            if (stopsAtProgress && percents.size() == 1) {
                add("-- stop");
                transcoder->stop();
            }
        });
        QObject::connect(transcoder.get(), &Transcoder::failed, [this](const Kestra::Proc::ProcessingError& error) {
            add("signal failed: " + error.GetDescription());
            add(QFile::exists(output) ? "the file is there" : "there is no file");
        });
    }

    /// Constructs, initializes, waits for the end.
    void run(const char* preset, const Types::Range& exportRange = {}) {
        presets.selectPreset(std::string(preset));
        add("-- construct");
        transcoder = std::make_unique<Export::Transcoder>(nullptr);
        listen();
        Export::Transcoder::Data data;
        data.composition = project.composition();
        data.streamRange = {KTime(0), KTime(2'000)};
        data.exportRange = exportRange;
        data.outputPath = output;
        data.brandingName = QStringLiteral("none");
        data.presetProvider = &presets;
        add("-- initialize");
        QString error;
        ASSERT_TRUE(transcoder->initialize(data, error)) << error.toStdString();
        add("-- event loop");
        ASSERT_TRUE(TestSupport::waitUntil([this] { return ended; }));
    }
    void endExport() {
        add("-- destroy");
        transcoder.reset();
        add("-- end");
        describeFile();
    }

    void describeFile() {
        if (!QFile::exists(output))
            return add("there is no file");
        const auto file = TestMedia::probe(output.toStdString());
        std::ostringstream text;
        text << "file: " << file.container << ", " << file.streams << " streams, " << file.decodeErrors << " errors";
        if (file.video)
            text << "; " << file.video->codec << ' ' << file.video->width << 'x' << file.video->height << ' '
                 << file.video->rate << ", " << file.video->frames.size() << " frames";
        if (file.audio)
            text << "; " << file.audio->codec << ' ' << file.audio->sampleRate << ' ' << file.audio->channels << " ch, "
                 << std::lround(file.audio->duration * 1000) << " ms";
        add(text.str());
    }

    /// Without what depends on where and by what compiler it was built, and where it ran.
    std::string trace() const {
        QString text;
        for (const auto& line : lines)
            text += QString::fromStdString(line) + QLatin1Char('\n');
        const std::pair<const char*, const char*> replacements[] = {
            {R"(/[^ \n"]*/film\.mp4)", "<folder>/film.mp4"},
            {R"([^ \n]*/[^ \n]*\.(cpp|h)(:|\()\d+\)?: Throw in function [^\n]*)", "<place>"},
            {R"(\n\[Kestra::TagCallStackName\*\][^\n]*(\n *\d+#[^\n]*)*(\n(?=\n))?)", ""},
        };
        for (const auto& replacement : replacements)
            text.replace(QRegularExpression(QLatin1String(replacement.first)), QLatin1String(replacement.second));
        return text.toStdString();
    }
    std::string kept(const std::string& name) const {
        return TestSupport::keptText(std::string(GOLDEN_FOLDER) + '/' + name, trace());
    }

    TestMedia::Folder folder;
    QString output = QString::fromStdString(folder / "film.mp4");
    TestSupport::LogCapture log;
    EditorFakes::TestCatalogue catalogue;
    Export::PresetProvider presets{nullptr};
    EditorFakes::BusTrace bus;
    EditorProject project;
    std::unique_ptr<Export::Transcoder> transcoder;
    std::vector<std::string> lines;
    std::vector<int> percents;
    bool stopsAtProgress = false;
    bool ended = false;
};

TEST_F(EngineTrace, OfACompleteExportIsAsKept) {
    run("av");
    endExport();
    EXPECT_EQ(trace(), kept("complete-export.txt"));
    ASSERT_FALSE(percents.empty());
    EXPECT_TRUE(std::is_sorted(percents.begin(), percents.end()));
    EXPECT_EQ(percents.back(), 100);
}

TEST_F(EngineTrace, OfAnExportOfAPartIsAsKept) {
    run("av", {KTime(400), KTime(1'400)});
    endExport();
    EXPECT_EQ(trace(), kept("part-export.txt"));
}

TEST_F(EngineTrace, OfAnExportOfSoundAloneIsAsKept) {
    run("sound");
    endExport();
    EXPECT_EQ(trace(), kept("sound-export.txt"));
}

TEST_F(EngineTrace, OfAnExportOfPicturesAloneIsAsKept) {
    run("pictures");
    endExport();
    EXPECT_EQ(trace(), kept("pictures-export.txt"));
}

TEST_F(EngineTrace, OfAnExportInTwoPassesIsAsKept) {
    run("two-pass");
    endExport();
    EXPECT_EQ(trace(), kept("two-pass-export.txt"));
    EXPECT_TRUE(std::is_sorted(percents.begin(), percents.end()));
    EXPECT_EQ(percents.back(), 100);
}

TEST_F(EngineTrace, OfAStoppedExportIsAsKept) {
    stopsAtProgress = true;
    run("av");
    add("-- destroy");
    transcoder.reset();
    add("-- end");
    EXPECT_EQ(trace(), kept("stopped-export.txt"));
    EXPECT_EQ(percents.size(), 1U) << "progress that was under way is dropped";
}

TEST_F(EngineTrace, OfAnExportThatFailsOnItsWayIsAsKept) {
    {
        const FileSizeLimit limit(8'192);
        run("av");
    }
    endExport();
    EXPECT_EQ(trace(), kept("broken-export.txt"));
}

TEST_F(EngineTrace, OfAFailedExportIsAsKept) {
    // The folder of the file does not exist.
    output = QString::fromStdString(folder / "nowhere/film.mp4");
    run("av");
    endExport();
    EXPECT_EQ(trace(), kept("failed-export.txt"));
}
