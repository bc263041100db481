// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::PlainTip: texts of files and users as tooltips.
#pragma once

#include <QString>
#include <QStringList>

namespace Dialog {

struct PlainTip {
    /// One below the other, as plain text whatever is in them, control characters named; empty where there is none.
    static QString of(const QStringList& texts);

    PlainTip() = delete;
};

} // namespace Dialog
