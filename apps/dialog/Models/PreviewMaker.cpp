// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Models/PreviewMaker.h"

#include "Kestra/Util/ImageUtils.h"
#include "dialog/Models/Retired.h"

namespace Dialog {
namespace {

constexpr int INTERVAL_MS = 400;

} // namespace

PreviewMaker::PreviewMaker(QObject* parent)
    : QObject(parent)
    , limit(480, 270) {
    timer.setInterval(INTERVAL_MS);
    connect(&timer, &QTimer::timeout, this, &PreviewMaker::look);
}

PreviewMaker::~PreviewMaker() = default;

void PreviewMaker::watch(const std::shared_ptr<Kestra::Proc::PictureBox>& box) {
    if (watched == box)
        return;
    watched = box;
    if (box) {
        timer.start();
        return;
    }
    timer.stop();
    retire(making, *this);
}

void PreviewMaker::look() {
    if (making || limit.isEmpty())
        return;
    const auto picture = watched->Take();
    if (!picture)
        return;
    const auto image = std::make_shared<QImage>();
    making = std::make_unique<ExportCore::BackgroundTask>(
        "make-preview", [picture, image, size = limit](const std::atomic<bool>&) {
            *image = Kestra::Util::ImageUtils::FrameToImage(*picture, size);
        });
    connect(making.get(), &ExportCore::BackgroundTask::finished, this, [this, image](const std::exception_ptr& error) {
        retire(making, *this);
        if (!error) // a picture that cannot be shown is no trouble of the export
            Q_EMIT made(*image);
    });
    making->start();
}

} // namespace Dialog
