// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::PresetDelegate: a preset of the list, with the reason where it is of no use.
#pragma once

#include <QStyledItemDelegate>

namespace Dialog {

/// For a PresetList. Nothing is cut off: what does not fit into a line goes on in the next.
class PresetDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace Dialog
