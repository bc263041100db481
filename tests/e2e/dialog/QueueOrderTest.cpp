// SPDX-License-Identifier: GPL-3.0-or-later
// In which order the exports run that wait.
#include "QueueFixture.h"
#include <QAction>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QUrl>

namespace TestDialog {
namespace {

class QueueOrder : public QueueFixture {
protected:
    /// What is to be made, in the list's order.
    QStringList order() const {
        QStringList all;
        for (int row = 0; row < jobs().rowCount(); ++row)
            all << jobs().index(row, Dialog::JobQueue::COLUMN_NAME).data().toString();
        return all;
    }
    int current() const { return find<QTreeView>("jobView").currentIndex().row(); }
    void pressInList(Qt::Key key) const {
        auto& list = find<QTreeView>("jobView");
        list.setFocus();
        QTest::keyClick(&list, key, Qt::AltModifier);
    }
    /// One dragged and dropped in front of a row.
    bool drop(int dragged, int row) const {
        const std::unique_ptr<QMimeData> data(jobs().mimeData({jobs().index(dragged, 0)}));
        return data && jobs().dropMimeData(data.get(), Qt::MoveAction, row, 0, {});
    }
};

TEST_F(QueueOrder, IsChangedByButtonsAndKeysAndIsWhatTheyRunIn) {
    show();
    openClip();
    for (const char* const name : {"a.mp4", "b.mp4", "c.mp4"})
        add(place / name);
    auto& up = find<QPushButton>("upButton");
    auto& down = find<QPushButton>("downButton");
    select(2);
    EXPECT_FALSE(down.isEnabled());
    click("upButton");
    EXPECT_EQ(order(), (QStringList{text("a.mp4"), text("c.mp4"), text("b.mp4")}));
    EXPECT_EQ(current(), 1) << "the same one stays selected";
    pressInList(Qt::Key_Up);
    EXPECT_EQ(order(), (QStringList{text("c.mp4"), text("a.mp4"), text("b.mp4")}));
    EXPECT_FALSE(up.isEnabled());
    pressInList(Qt::Key_Up);
    EXPECT_EQ(order(), (QStringList{text("c.mp4"), text("a.mp4"), text("b.mp4")}));
    EXPECT_EQ(current(), 0);
    select(1);
    pressInList(Qt::Key_Down);
    EXPECT_EQ(order(), (QStringList{text("c.mp4"), text("b.mp4"), text("a.mp4")}));
    pressInList(Qt::Key_Down);
    EXPECT_EQ(current(), 2) << "it does not select another one where nothing can be moved";
    find<QTreeView>("jobView").actions().front()->trigger(); // of the list's menu
    EXPECT_EQ(order(), (QStringList{text("c.mp4"), text("a.mp4"), text("b.mp4")}));
    QStringList ended;
    const auto& queue = static_cast<const Dialog::JobQueue&>(jobs());
    QObject::connect(&queue, &Dialog::JobQueue::jobEnded, &queue, [&](int id) { ended << queue.job(id)->name(); });
    click("startButton");
    ASSERT_TRUE(waitUntil([&] { return ended.size() == 3; }));
    EXPECT_EQ(ended, order());
}

TEST_F(QueueOrder, LeavesTheFocusOnNoButtonThatWouldUndoAMove) {
    show();
    openClip();
    add(place / "a.mp4");
    add(place / "b.mp4");
    select(1);
    auto& up = find<QPushButton>("upButton");
    up.setFocus();
    QTest::keyClick(&up, Qt::Key_Space);
    EXPECT_EQ(order(), (QStringList{text("b.mp4"), text("a.mp4")}));
    EXPECT_EQ(QApplication::focusWidget(), &find<QTreeView>("jobView"));
}

TEST_F(QueueOrder, KeepsWhatRunsOrHasEndedAtItsPlace) {
    show();
    openClip();
    add(place / "a.mp4");
    saveAs(place / "now.mp4");
    press('x');
    ASSERT_TRUE(waitUntil([&] { return jobs().rowCount() == 2 && state(1) == text("Done"); }));
    add(place / "b.mp4");
    select(2);
    pressInList(Qt::Key_Up);
    EXPECT_EQ(order(), (QStringList{text("b.mp4"), text("now.mp4"), text("a.mp4")}));
    EXPECT_EQ(current(), 0);
    pressInList(Qt::Key_Down);
    EXPECT_EQ(order(), (QStringList{text("a.mp4"), text("now.mp4"), text("b.mp4")}));
    EXPECT_EQ(current(), 2);
    select(1);
    pressInList(Qt::Key_Up);
    pressInList(Qt::Key_Down);
    EXPECT_EQ(order(), (QStringList{text("a.mp4"), text("now.mp4"), text("b.mp4")}));
    startLong();
    add(place / "c.mp4");
    for (const int row : {3, 4}) {
        select(row);
        const bool waits = state(row) == text("Waiting");
        EXPECT_EQ(waits, row == 4);
        EXPECT_EQ(find<QPushButton>("upButton").isEnabled(), waits);
        for (const QAction* const action : find<QTreeView>("jobView").actions())
            EXPECT_EQ(action->isEnabled(), waits && action->text().startsWith(text("Move &up"))) << row;
    }
    pressInList(Qt::Key_Up);
    EXPECT_EQ(order(), (QStringList{text("a.mp4"), text("now.mp4"), text("c.mp4"), text("film.mp4"), text("b.mp4")}));
}

TEST_F(QueueOrder, IsChangedByDragging) {
    show();
    startLong();
    for (const char* const name : {"a.mp4", "b.mp4", "c.mp4"})
        add(place / name);
    EXPECT_TRUE(find<QTreeView>("jobView").dragEnabled());
    EXPECT_FALSE(jobs().flags(jobs().index(0, 0)) & Qt::ItemIsDragEnabled) << "it runs";
    EXPECT_TRUE(jobs().flags(jobs().index(1, 0)) & Qt::ItemIsDragEnabled);
    EXPECT_FALSE(drop(0, 4));
    EXPECT_TRUE(drop(1, 3)) << "in front of the last one";
    EXPECT_EQ(order(), (QStringList{text("film.mp4"), text("b.mp4"), text("a.mp4"), text("c.mp4")}));
    EXPECT_TRUE(drop(3, 0)) << "no further than behind the one that runs";
    EXPECT_EQ(order(), (QStringList{text("film.mp4"), text("c.mp4"), text("b.mp4"), text("a.mp4")}));
    EXPECT_TRUE(drop(1, -1)) << "below all of them";
    EXPECT_EQ(order(), (QStringList{text("film.mp4"), text("b.mp4"), text("a.mp4"), text("c.mp4")}));
    EXPECT_TRUE(drop(2, 2)) << "where it is";
    EXPECT_TRUE(drop(2, 3)) << "where it is";
    EXPECT_EQ(order(), (QStringList{text("film.mp4"), text("b.mp4"), text("a.mp4"), text("c.mp4")}));
    QMimeData other;
    other.setText(text("1"));
    EXPECT_FALSE(jobs().dropMimeData(&other, Qt::MoveAction, 1, 0, {}));
}

TEST_F(QueueOrder, LetsFilesBeDroppedOnTheList) {
    show();
    openClip();
    add(place / "a.mp4");
    const std::string other = place / "other.mov";
    ASSERT_TRUE(QFile::copy(QString::fromStdString(clip), QString::fromStdString(other)));
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(other))});
    QWidget* const list = find<QTreeView>("jobView").viewport();
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(list, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(list, &drop);
    EXPECT_TRUE(waitUntil([&] { return find<QLabel>("sourceName").text() == text("other.mov"); }));
    EXPECT_EQ(jobs().rowCount(), 1);
}

} // namespace
} // namespace TestDialog
