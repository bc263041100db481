// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::Thumbnails: small pictures along a sequence.
#pragma once

#include "ExportCore/BackgroundTask.h"
#include "ExportCoreExport.h"
#include "Kestra/Conf/FrameInfo.h"
#include "Render/Sequence.h"
#include <QImage>
#include <QSize>

namespace ExportCore {

/// Pictures from the middle of as many equal parts as there are to be, the first part's first. What a picture cannot be
/// made of ends the task with its reason.
class EXPORTCORE_EXPORT Thumbnails : public BackgroundTask {
    Q_OBJECT
public:
    /// `shape` is the size and aspect that the sequence is shown in, `limit` that of a picture, neither empty. The
    /// sequence has pictures and lasts for some time.
    Thumbnails(const Render::Sequence& sequence, const Kestra::Conf::FrameInfo& shape, int count, const QSize& limit,
               QObject* parent = nullptr);
    ~Thumbnails() override;

Q_SIGNALS:
    /// Each index from 0 on once.
    void made(int index, const QImage& picture);

private:
    struct Delivery;
    struct Strip;
    Thumbnails(const std::shared_ptr<Delivery>& delivery, const Strip& strip, QObject* parent);

    const std::shared_ptr<Delivery> delivery;
    Kestra::Util::FunctorExecutionForwarder forwarder;
};

} // namespace ExportCore
