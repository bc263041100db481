// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Models/PlainTip.h"

#include "ExportCore/PlainText.h"

namespace Dialog {

/// Marked up on purpose: of a text that is not, Qt guesses.
QString PlainTip::of(const QStringList& texts) {
    if (texts.isEmpty())
        return {};
    QStringList lines;
    for (const QString& text : texts)
        lines << QString::fromStdString(ExportCore::PlainText::escaped(text.toStdString())).toHtmlEscaped();
    return QStringLiteral("<div style=\"white-space: pre\">%1</div>").arg(lines.join(QStringLiteral("<br>")));
}

} // namespace Dialog
