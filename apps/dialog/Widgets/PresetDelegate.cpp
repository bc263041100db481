// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Widgets/PresetDelegate.h"

#include "dialog/Models/PresetList.h"
#include <QApplication>
#include <QPainter>

namespace Dialog {
namespace {

constexpr int MARGIN = 4;

QString obstacleOf(const QModelIndex& index) {
    return index.data(PresetList::ROLE_OBSTACLE).toString();
}

} // namespace

void PresetDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const QString title = item.text, obstacle = obstacleOf(index);
    item.text.clear();
    const QStyle& style = item.widget ? *item.widget->style() : *QApplication::style();
    style.drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);
    const bool selected = item.state.testFlag(QStyle::State_Selected);
    const auto group = item.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
    const QColor plain = item.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text);
    const QColor pale = selected ? plain : item.palette.color(QPalette::Disabled, QPalette::Text);
    const int line = item.fontMetrics.lineSpacing();
    QRect place = item.rect.adjusted(MARGIN, MARGIN / 2, -MARGIN, 0);
    place.setHeight(line);
    painter->save();
    painter->setFont(item.font);
    painter->setPen(obstacle.isEmpty() ? plain : pale);
    painter->drawText(place, Qt::AlignVCenter, item.fontMetrics.elidedText(title, Qt::ElideRight, place.width()));
    if (!obstacle.isEmpty()) {
        QFont slanted = item.font;
        slanted.setItalic(true);
        painter->setFont(slanted);
        place.translate(0, line);
        painter->drawText(place, Qt::AlignVCenter,
                          QFontMetrics(slanted).elidedText(obstacle, Qt::ElideRight, place.width()));
    }
    painter->restore();
}

QSize PresetDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QFontMetrics metrics(option.font);
    const int lines = obstacleOf(index).isEmpty() ? 1 : 2;
    return {metrics.horizontalAdvance(QLatin1Char('x')) * 20, lines * metrics.lineSpacing() + MARGIN};
}

} // namespace Dialog
