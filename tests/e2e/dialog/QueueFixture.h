// SPDX-License-Identifier: GPL-3.0-or-later
// The export window with several exports.
#pragma once

#include "WindowFixture.h"
#include "dialog/Models/JobQueue.h"
#include <QTreeView>

namespace TestDialog {

/// The list of jobs.
class QueueFixture : public WindowTest {
protected:
    QAbstractItemModel& jobs() const { return *find<QTreeView>("jobView").model(); }
    QString state(int row) const { return jobs().index(row, Dialog::JobQueue::COLUMN_STATE).data().toString(); }
    QStringList states() const {
        QStringList all;
        for (int row = 0; row < jobs().rowCount(); ++row)
            all << state(row);
        return all;
    }
    void select(int row) const { find<QTreeView>("jobView").setCurrentIndex(jobs().index(row, 0)); }
    void click(const char* button) const {
        ASSERT_TRUE(find<QPushButton>(button).isVisible()) << button;
        find<QPushButton>(button).click();
    }
    void add(const std::string& path) const {
        const int before = jobs().rowCount();
        find<QLineEdit>("outputEdit").setText(QString::fromStdString(path));
        find<QPushButton>("addButton").click();
        ASSERT_TRUE(waitUntil([&] { return jobs().rowCount() == before + 1; }));
    }
    void startLong() {
        openMuch();
        saveAs(output);
        press('x');
        ASSERT_TRUE(waitUntil([&] { return find<QPushButton>("stopButton").isVisible(); }));
    }
    void stopIt() const {
        click("stopButton");
        ASSERT_TRUE(waitForQuestion());
        answer(QMessageBox::AcceptRole);
        ASSERT_TRUE(waitForEnd());
    }
    QStringList names() const { return TestFiles::namesIn(place / ""); }

    const std::string output = place / "film.mp4";
};

} // namespace TestDialog
