// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::JobDelegate: the state of a job in the list; a bar while it runs.
#pragma once

#include <QStyledItemDelegate>

namespace Dialog {

/// For the state column of a JobQueue.
class JobDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace Dialog
