// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Widgets/PictureLabel.h"

#include <QPainter>

namespace Dialog {

PictureLabel::PictureLabel(QWidget* parent)
    : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PictureLabel::setPicture(const QImage& image) {
    picture = image;
    update();
}

QSize PictureLabel::room() const {
    return sizeHint() * devicePixelRatioF();
}

/// In lines of text, so that it suits the text beside it.
QSize PictureLabel::sizeHint() const {
    constexpr int LINES = 7;
    const int height = LINES * fontMetrics().lineSpacing();
    return {height * 16 / 9, height};
}

void PictureLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    if (picture.isNull())
        return;
    const QSize size = picture.size().scaled(this->size(), Qt::KeepAspectRatio);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRect(QPoint((width() - size.width()) / 2, (height() - size.height()) / 2), size), picture);
}

} // namespace Dialog
