// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Widgets/PresetDelegate.h"

#include "dialog/Models/PresetList.h"
#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>
#include <algorithm>

namespace Dialog {
namespace {

constexpr int MARGIN = 4;
constexpr int WRAPPED = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;

QString obstacleOf(const QModelIndex& index) {
    return index.data(PresetList::ROLE_OBSTACLE).toString();
}

QFont slanted(const QFont& font) {
    QFont other = font;
    other.setItalic(true);
    return other;
}

int heightOf(const QString& text, const QFont& font, int width) {
    constexpr int unbounded = 1 << 16;
    return QFontMetrics(font).boundingRect(QRect(0, 0, width, unbounded), WRAPPED, text).height();
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
    const QRect place = item.rect.adjusted(MARGIN, MARGIN / 2, -MARGIN, 0);
    painter->save();
    painter->setFont(item.font);
    painter->setPen(obstacle.isEmpty() ? plain : pale);
    painter->drawText(place, WRAPPED, title);
    if (!obstacle.isEmpty()) {
        painter->setFont(slanted(item.font));
        painter->drawText(place.adjusted(0, heightOf(title, item.font, place.width()), 0, 0), WRAPPED, obstacle);
    }
    painter->restore();
}

/// As high as its lines need in the width that the list has.
QSize PresetDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const auto* const list = qobject_cast<const QAbstractItemView*>(option.widget);
    const int width = std::max(list ? list->viewport()->width() : option.rect.width(), 1);
    const QString obstacle = obstacleOf(index);
    const int room = width - 2 * MARGIN;
    const int lines = heightOf(index.data().toString(), option.font, room) +
                      (obstacle.isEmpty() ? 0 : heightOf(obstacle, slanted(option.font), room));
    return {QFontMetrics(option.font).horizontalAdvance(QLatin1Char('x')) * 20, lines + MARGIN};
}

} // namespace Dialog
