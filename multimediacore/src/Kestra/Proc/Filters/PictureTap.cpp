// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Filters/PictureTap.h"

#include <utility>

namespace Kestra::Proc {

boost::intrusive_ptr<IDataVideo> PictureBox::Take() {
    const std::lock_guard<std::mutex> lock(mutex);
    wanted = true;
    return std::exchange(held, nullptr);
}

// One at a time: a picture that nobody takes is not replaced, so a stream that is not watched shares nothing.
void PictureBox::Put(const IDataVideo& picture) {
    reached = picture.GetTime() + picture.GetDuration();
    const std::lock_guard<std::mutex> lock(mutex);
    if (!std::exchange(wanted, false))
        return;
    held = picture.Share();
}

std::int64_t PictureBox::Reached() const {
    return reached;
}

PictureTap::PictureTap(const boost::intrusive_ptr<IStreamVideo>& source, std::shared_ptr<PictureBox> box)
    : VideoFilterBase(source, "picture tap")
    , box(std::move(box)) {
    if (!this->box)
        KESTRA_THROW(std::invalid_argument("A picture tap was given no box"));
}

boost::intrusive_ptr<IDataVideo> PictureTap::ReadVideo() {
    auto picture = source->ReadVideo();
    if (picture)
        box->Put(*picture);
    return picture;
}

} // namespace Kestra::Proc
