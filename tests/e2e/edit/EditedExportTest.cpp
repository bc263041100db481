// SPDX-License-Identifier: GPL-3.0-or-later
// A composition that is edited while an export of it is about to start: what stands there at the start is exported.
#include "EditorProject/EditorProject.h"
#include "Export/PresetProvider.h"
#include "Export/Transcoder.h"
#include "ExportCore/PresetSelection.h"
#include "Kestra/Base/Time.h"
#include "Stream/View.h"
#include "Timeline/DocumentEdit.h"
#include "support/FlashBeep.h"
#include "support/MediaProbe.h"
#include "support/WaitUntil.h"
#include <functional>
#include <gtest/gtest.h>
#include <utility>

namespace {

using Kestra::Ticks;

constexpr std::int64_t FRAME = Kestra::TIME_BASE / 25;
/// From one flash to the next, by which the media are told apart.
constexpr int PERIOD_A = 25, PERIOD_B = 20, PERIOD_C = 15;

enum class When { AfterInitialize, PicturesAvailable, AllAvailable };

/// Calls back once the model has made a stream available.
template <class M, class I>
class Watcher : private Stream::View<M, I> {
public:
    explicit Watcher(std::function<void()> then)
        : then(std::move(then)) {
        this->observeAll();
    }

private:
    void isAvailable(const Stream::Object<M, I>*, bool available) override {
        if (available && then)
            std::exchange(then, nullptr)();
    }

    std::function<void()> then;
};
using PictureWatcher = Watcher<Media::Video, Kestra::Proc::IStreamVideo>;
using SoundWatcher = Watcher<Media::Audio, Kestra::Proc::IStreamAudio>;

/// What clips of such media show; -1 for flashes.
std::vector<int> shown(int first, int count, int period) {
    std::vector<int> all;
    for (int n = first; n < first + count; ++n)
        all.push_back(n % period < 2 ? -1 : n % 16);
    return all;
}

std::vector<int> joined(std::vector<int> all, const std::vector<int>& more) {
    all.insert(all.end(), more.begin(), more.end());
    return all;
}

class EditedExport : public ::testing::TestWithParam<When> {
protected:
    EditedExport() {
        project.show(Render::Sequence::ofFiles({medium("a.mov", PERIOD_A), medium("b.mov", PERIOD_B)}));
        other = Render::Sequence::ofFiles({medium("c.mov", PERIOD_C)}).document;
        provider = ExportCore::PresetSelection::makeProvider();
        ExportCore::PresetSelection::select(*provider, "mkv-ffv1-flac");
        document = Render::Sequence::ofFiles({Kestra::ioPath(folder / "a.mov"), Kestra::ioPath(folder / "b.mov")});
    }

    Kestra::ioPath medium(const std::string& name, int period) const {
        TestMedia::FlashBeep media;
        media.frames = 50;
        media.period = period;
        makeFlashBeep(folder / name, media);
        return Kestra::ioPath(folder / name);
    }

    using Edit =
        std::function<std::shared_ptr<const Timeline::Document>(const Timeline::Document&, const Timeline::ItemPlace&)>;

    /// The file of an export that was prepared with a.mov and b.mov, both pictures and sound edited then.
    TestMedia::ProbedMedia exported(const Edit& edit) {
        const std::uint64_t version = project.composition()->version();
        const auto change = [&] {
            for (const std::size_t track : {0, 1})
                document.document = edit(*document.document, {track, 0});
            project.show(document);
        };
        PictureWatcher pictures(GetParam() == When::PicturesAvailable ? change : std::function<void()>());
        SoundWatcher sound(GetParam() == When::AllAvailable ? change : std::function<void()>());
        bool started = false, failed = false, ended = false;
        Export::Transcoder transcoder(nullptr);
        QObject::connect(&transcoder, &Export::Transcoder::started, [&] {
            EXPECT_GT(project.composition()->version(), version) << "the edit came too late";
            started = true;
        });
        QObject::connect(&transcoder, &Export::Transcoder::failed, [&] { failed = true; });
        QObject::connect(&transcoder, &Export::Transcoder::stopped, [&] { ended = true; });
        QString error;
        EXPECT_TRUE(transcoder.initialize({project.composition(), {}, {}, out(), {}, provider.get()}, error))
            << error.toStdString();
        if (GetParam() == When::AfterInitialize)
            change();
        EXPECT_TRUE(TestSupport::waitUntil([&] { return ended; }));
        EXPECT_TRUE(started && !failed);
        return TestMedia::probe(out().toStdString());
    }
    QString out() const { return QString::fromStdString(folder / "out.mkv"); }

    TestMedia::Folder folder;
    EditorProject project;
    std::unique_ptr<Export::PresetProvider> provider;
    Render::Sequence document;
    std::shared_ptr<const Timeline::Document> other;
};

TEST_P(EditedExport, LeavesOutAClipThatWasRemoved) {
    const auto found = exported([](const auto& all, const auto& place) { return withoutItem(all, place); });
    EXPECT_EQ(found.numbers(), shown(0, 50, PERIOD_B));
    EXPECT_EQ(found.audio->samples, 50 * 1920);
    EXPECT_EQ(found.audio->onsets, (std::vector<long long>{0, 20 * 1920, 40 * 1920}));
}

TEST_P(EditedExport, HasAClipAsItWasTrimmed) {
    const auto found = exported([](const auto& all, const auto& place) {
        Timeline::Item item = all.tracks->tracks()[place.track].items()[place.item];
        item.duration = Ticks(15 * FRAME);
        std::get<Timeline::Clip>(item.content).excerpt.start = Ticks(20 * FRAME);
        return withItem(all, place, item);
    });
    EXPECT_EQ(found.numbers(), joined(shown(20, 15, PERIOD_A), shown(0, 50, PERIOD_B)));
    EXPECT_EQ(found.audio->samples, 65 * 1920);
    EXPECT_EQ(found.audio->onsets, (std::vector<long long>{5 * 1920, 15 * 1920, 35 * 1920, 55 * 1920}));
}

TEST_P(EditedExport, HasWhatAClipWasReplacedWith) {
    const auto found = exported([this](const auto& all, const auto& place) {
        return withItem(all, place, other->tracks->tracks()[place.track].items().front());
    });
    EXPECT_EQ(found.numbers(), joined(shown(0, 50, PERIOD_C), shown(0, 50, PERIOD_B)));
    EXPECT_EQ(found.audio->samples, 100 * 1920);
    EXPECT_EQ(found.audio->onsets,
              (std::vector<long long>{0, 15 * 1920, 30 * 1920, 45 * 1920, 50 * 1920, 70 * 1920, 90 * 1920}));
}

INSTANTIATE_TEST_SUITE_P(AtEachMoment, EditedExport,
                         ::testing::Values(When::AfterInitialize, When::PicturesAvailable, When::AllAvailable));

} // namespace
