// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::ExportWindow: how much room it takes.
#include "dialog/Widgets/ExportWindow.h"

#include "ui_ExportWindow.h"
#include <QScreen>
#include <algorithm>

namespace Dialog {

/// For the names of presets and the settings beside them, as far as the screen has it. By a letter's width: the average
/// one is twice as wide in fonts that have all the world's letters.
void ExportWindow::takeRoom() {
    const QFontMetrics metrics = fontMetrics();
    const int letter = metrics.horizontalAdvance(QLatin1Char('x')), line = metrics.lineSpacing();
    const QSize frame(letter, 3 * line); // a guess: the desktop draws it later
    resize(QSize(letter * 155, line * 40).boundedTo(screen()->availableGeometry().size() - frame));
    const int presets = width() * 3 / 8;
    ui->setupSplitter->setSizes({presets, width() - presets});
}

/// They come below what was there, for which there is as much room as before where the screen allows.
void ExportWindow::showJobs() {
    if (ui->jobPane->isVisible())
        return;
    const int above = ui->setupPane->height(), below = fontMetrics().lineSpacing() * 10;
    const int most = screen()->availableGeometry().height() - (frameGeometry().height() - height());
    if (!isMaximized() && !isFullScreen()) {
        resize(width(), std::min(height() + below, std::max(most, height())));
        moveUp();
    }
    ui->jobPane->show();
    ui->mainSplitter->setSizes({above, below});
}

/// What has become higher downwards is not to end below the screen.
void ExportWindow::moveUp() {
    const QRect room = screen()->availableGeometry();
    const int below = y() + frameGeometry().height() - (room.bottom() + 1);
    if (below > 0)
        move(x(), std::max(y() - below, room.top()));
}

} // namespace Dialog
