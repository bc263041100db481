// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::PreviewMaker: the picture that is being encoded, now and then.
#pragma once

#include "ExportCore/BackgroundTask.h"
#include "Kestra/Proc/Filters/PictureTap.h"
#include <QImage>
#include <QObject>
#include <QSize>
#include <QTimer>
#include <memory>

namespace Dialog {

/// Looks a few times a second whether there is a new picture, and prepares it on another thread.
class PreviewMaker : public QObject {
    Q_OBJECT
public:
    explicit PreviewMaker(QObject* parent = nullptr);
    ~PreviewMaker() override;

    /// Null: nothing is shown any more.
    void watch(const std::shared_ptr<Kestra::Proc::PictureBox>& box);
    /// In pixels of the device.
    void setLimit(const QSize& size) { limit = size; }

Q_SIGNALS:
    void made(const QImage& picture);

private:
    void look();

    std::shared_ptr<Kestra::Proc::PictureBox> watched;
    std::unique_ptr<ExportCore::BackgroundTask> making;
    QTimer timer;
    QSize limit;
};

} // namespace Dialog
