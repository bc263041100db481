// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Widgets/JobDelegate.h"

#include "dialog/Models/JobQueue.h"
#include <QApplication>
#include <QStyleOptionProgressBar>

namespace Dialog {

void JobDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const int percent = index.data(JobQueue::ROLE_PERCENT).toInt();
    if (percent < 0)
        return QStyledItemDelegate::paint(painter, option, index);
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    QStyleOptionProgressBar bar;
    bar.rect = item.rect.adjusted(1, 1, -1, -1);
    bar.palette = item.palette;
    bar.fontMetrics = item.fontMetrics;
    bar.state = QStyle::State_Enabled | QStyle::State_Active | QStyle::State_Horizontal;
    bar.direction = item.direction;
    bar.minimum = 0;
    bar.maximum = 100;
    bar.progress = percent;
    bar.text = item.text;
    bar.textVisible = true;
    bar.textAlignment = Qt::AlignCenter;
    item.text.clear();
    const QStyle& style = item.widget ? *item.widget->style() : *QApplication::style();
    style.drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);
    style.drawControl(QStyle::CE_ProgressBar, &bar, painter, item.widget);
}

} // namespace Dialog
