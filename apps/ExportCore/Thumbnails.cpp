// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/Thumbnails.h"

#include "Kestra/Base/FrameGrid.h"
#include "Kestra/Base/Time.h"
#include "Kestra/Util/ImageUtils.h"
#include "Render/Streams.h"
#include <algorithm>
#include <cmath>
#include <mutex>
#include <utility>

namespace ExportCore {

using Kestra::Ticks;
using Kestra::Conf::FrameInfo;
using Kestra::Proc::SeekMode;

namespace {

/// Only says how exactly a place is met.
constexpr int FRAMES_A_SECOND = 25;

} // namespace

/// What is to be made.
struct Thumbnails::Strip {
    /// No larger than needed: layers are scaled before they are blended.
    FrameInfo frame() const {
        const double width = std::max(shape.width, 2U), height = std::max(shape.height, 2U);
        const double scale = std::min({1.0, limit.width() / width, limit.height() / height});
        const auto side = [scale](double length) {
            return static_cast<std::uint32_t>(std::max(2.0, 2.0 * std::ceil(length * scale / 2)));
        };
        return {side(width), side(height), shape.aspectNumerator, shape.aspectDenominator};
    }
    Ticks middleOf(int index) const {
        return Ticks(Kestra::MulDivRound(sequence.document->duration().Value(), 2 * index + 1, 2LL * count));
    }

    template <class Deliver>
    void make(const std::atomic<bool>& interrupted, const Deliver& deliver) const {
        const Kestra::FrameGrid grid(FRAMES_A_SECOND);
        const Render::Window window(Ticks(0), sequence.document->duration(), grid);
        if (window.isEmpty())
            return;
        const auto stream = Render::createPictureStream(sequence, window, frame());
        stream->Prepare();
        for (int index = 0; index < count && !interrupted; ++index) {
            stream->Seek(middleOf(index).Value(), SeekMode::Exact);
            if (const auto picture = stream->ReadVideo())
                deliver(index, Kestra::Util::ImageUtils::FrameToImage(*picture, limit));
        }
    }

    Render::Sequence sequence;
    FrameInfo shape;
    int count;
    QSize limit;
};

/// The way from the work, which may outlive the task, to it.
struct Thumbnails::Delivery {
    void tell(int index, const QImage& picture) {
        const std::lock_guard<std::mutex> lock(mutex);
        if (task)
            task->forwarder.Forward([owner = task, index, picture] { Q_EMIT owner->made(index, picture); });
    }

    std::mutex mutex;
    Thumbnails* task = nullptr; ///< null once it is gone
};

Thumbnails::Thumbnails(const Render::Sequence& sequence, const FrameInfo& shape, int count, const QSize& limit,
                       QObject* parent)
    : Thumbnails(std::make_shared<Delivery>(), Strip{sequence, shape, count, limit}, parent) {}

Thumbnails::Thumbnails(const std::shared_ptr<Delivery>& delivery, const Strip& strip, QObject* parent)
    : BackgroundTask(
          "thumbnails",
          [delivery, strip](const std::atomic<bool>& interrupted) {
              strip.make(interrupted, [&](int index, const QImage& picture) { delivery->tell(index, picture); });
          },
          parent)
    , delivery(delivery) {
    delivery->task = this;
}

Thumbnails::~Thumbnails() {
    const std::lock_guard<std::mutex> lock(delivery->mutex);
    delivery->task = nullptr;
}

} // namespace ExportCore
