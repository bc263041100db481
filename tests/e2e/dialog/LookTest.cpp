// SPDX-License-Identifier: GPL-3.0-or-later
// How the window's parts lie, as far as no eye is needed for it.
#include "WindowFixture.h"
#include "dialog/Models/Job.h"
#include "dialog/Models/JobQueue.h"
#include "dialog/Models/PresetList.h"
#include <QHeaderView>
#include <QListView>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QToolButton>
#include <QTreeView>
#include <algorithm>

namespace TestDialog {
namespace {

class Look : public WindowTest {
protected:
    ~Look() override { QApplication::setFont(usual); }

    static void writeIn(int points) {
        QFont font = QApplication::font();
        font.setPointSize(points);
        QApplication::setFont(font);
    }

private:
    const QFont usual = QApplication::font();
};

TEST_F(Look, FitsTheScreenWhateverTheFont) {
    for (const int size : {9, 40}) {
        writeIn(size);
        show();
        const QSize room = window->screen()->availableGeometry().size();
        EXPECT_LE(window->width(), room.width()) << size;
        EXPECT_LE(window->height(), room.height()) << size;
    }
}

TEST_F(Look, StaysOnTheScreenWhenTheListComes) {
    show();
    openClip();
    const QRect room = window->screen()->availableGeometry();
    window->resize(window->width(), 400);
    window->move(0, room.bottom() + 1 - window->frameGeometry().height());
    const int before = window->height();
    press('q');
    ASSERT_TRUE(waitUntil([this] { return find<QWidget>("jobPane").isVisible(); }));
    EXPECT_GT(window->height(), before);
    EXPECT_LE(window->frameGeometry().bottom(), room.bottom());
}

TEST_F(Look, ShowsWholeNamesOfPresets) {
    show();
    auto& tags = find<QComboBox>("tagBox");
    const auto& list = find<QListView>("presetList");
    int widest = 0;
    for (const int width : {500, 1180}) {
        window->resize(width, 820);
        for (int tag = 0; tag < tags.count(); ++tag) {
            press('m');
            key(tag == 0 ? Qt::Key_Home : Qt::Key_Down);
            TestSupport::turnEventLoop();
            for (int row = 0; row < list.model()->rowCount(); ++row) {
                const QModelIndex preset = list.model()->index(row, 0);
                const QString title = preset.data().toString();
                const QSize room = list.visualRect(preset).size();
                const QRect needed =
                    list.fontMetrics().boundingRect(QRect(0, 0, room.width() - 8, 1000), Qt::TextWordWrap, title);
                EXPECT_LE(needed.height(), room.height()) << title.toStdString() << " at " << width;
                EXPECT_LE(needed.width(), room.width()) << title.toStdString() << " at " << width;
                widest = std::max(widest, list.fontMetrics().horizontalAdvance(title));
            }
        }
    }
    EXPECT_GT(widest, list.viewport()->width()) << "one has several lines";
}

/// A list lays its items out anew where its height changes, by itself.
TEST_F(Look, ShowsWholeNamesOfPresetsWhenTheirListBecomesNarrowerAndNoHigher) {
    show();
    window->resize(1180, 820);
    find<QLabel>("factsLabel").hide(); // whose height changes
    TestSupport::turnEventLoop();
    const auto& list = find<QListView>("presetList");
    const QAbstractItemModel& rows = *list.model();
    const auto rectOf = [&](int row) { return list.visualRect(rows.index(row, 0)); };
    const int last = rows.rowCount() - 1, end = rectOf(last).bottom(), width = list.width(), height = list.height();
    auto& splitter = find<QSplitter>("setupSplitter");
    const QList<int> sizes = splitter.sizes();
    splitter.setSizes({sizes.at(0) - 100, sizes.at(1) + 100});
    TestSupport::turnEventLoop();
    ASSERT_LT(list.width(), width);
    ASSERT_EQ(list.height(), height);
    EXPECT_GT(rectOf(last).bottom(), end) << "some have more lines now";
    for (int row = 0; row < last; ++row)
        EXPECT_LT(rectOf(row).bottom(), rectOf(row + 1).top()) << row;
}

TEST_F(Look, BeginsWithWholeNamesOfPresets) {
    show();
    TestSupport::turnEventLoop();
    const auto& list = find<QListView>("presetList");
    ASSERT_GT(list.verticalScrollBar()->maximum(), 0) << "there are more than the view has room for";
    ASSERT_LT(list.visualRect(list.currentIndex()).bottom(), list.viewport()->height());
    EXPECT_EQ(list.verticalScrollBar()->value(), 0);
}

TEST_F(Look, TellsAWholePresetInItsTip) {
    show();
    const QModelIndex preset = find<QListView>("presetList").model()->index(0, 0);
    const QString tip = preset.data(Qt::ToolTipRole).toString();
    EXPECT_TRUE(tip.contains(preset.data().toString().toHtmlEscaped())) << tip.toStdString();
    EXPECT_TRUE(tip.contains(preset.data(Dialog::PresetList::ROLE_FACTS).toString())) << tip.toStdString();
}

TEST_F(Look, ShowsDetailsThatAreUnfolded) {
    show();
    openClip();
    saveAs(place / "nowhere/film.mp4");
    press('x');
    ASSERT_TRUE(waitForEnd());
    auto& button = find<QToolButton>("detailsButton");
    button.click();
    const auto& details = find<QPlainTextEdit>("detailsEdit");
    const auto& area = find<QScrollArea>("endArea");
    ASSERT_TRUE(waitUntil([&] {
        const int most = std::min(details.height(), area.viewport()->height() - button.height() - 20);
        return details.visibleRegion().boundingRect().height() >= most;
    }));
}

TEST_F(Look, TellsAWarningInTheListToo) {
    Dialog::Job job;
    job.state = Dialog::Job::State::Ended;
    job.outcome.emplace();
    job.outcome->status = ExportCore::ExportOutcome::Status::Done;
    EXPECT_EQ(job.stateText(), text("Done"));
    job.outcome->warnings << text("\"a.mov\" is damaged");
    EXPECT_EQ(job.stateText(), text("Done, with warnings"));
}

TEST_F(Look, HasRoomForAllStatesInEveryLanguage) {
    for (const char* const locale : {"en_US", "de_DE", "es_ES", "ja_JP", "zh_CN"}) {
        const Dialog::Translations translations(*qApp, QLocale(text(locale)));
        show();
        const auto& jobs = find<QTreeView>("jobView");
        for (const QString& state : Dialog::Job::stateTexts())
            EXPECT_LT(jobs.fontMetrics().horizontalAdvance(state) + 6,
                      jobs.header()->sectionSize(Dialog::JobQueue::COLUMN_STATE))
                << state.toStdString();
    }
}

} // namespace
} // namespace TestDialog
