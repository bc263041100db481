// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::PictureLabel: shows a picture, as large as there is room.
#pragma once

#include <QImage>
#include <QWidget>

namespace Dialog {

class PictureLabel : public QWidget {
    Q_OBJECT
public:
    explicit PictureLabel(QWidget* parent = nullptr);

    /// A null picture is none.
    void setPicture(const QImage& image);
    bool isEmpty() const { return picture.isNull(); }
    /// In pixels of the device: what suits a picture.
    QSize room() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage picture;
};

} // namespace Dialog
