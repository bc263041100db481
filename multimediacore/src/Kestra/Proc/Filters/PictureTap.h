// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::PictureTap: lets somebody see what passes.
#pragma once

#include "Kestra/Proc/Filters/VideoFilterBase.h"
#include <atomic>
#include <memory>
#include <mutex>

namespace Kestra::Proc {

/// One picture on its way from the thread that reads a stream to who shows it. Thread-safe.
class KESTRA_EXPORT PictureBox {
public:
    /// Null when none has been put in since the last call. From then on the next one is wanted.
    boost::intrusive_ptr<IDataVideo> Take();
    /// Keeps a share of the picture, which its owner may go on with; nothing where none is wanted.
    void Put(const IDataVideo& picture);
    /// Where the picture that was put in last ends, in engine time of its stream; 0 before the first one.
    std::int64_t Reached() const;

private:
    std::mutex mutex;
    boost::intrusive_ptr<IDataVideo> held;
    bool wanted = false;
    std::atomic<std::int64_t> reached{0};
};

/// Passes pictures as they are, and puts them into the box.
class KESTRA_EXPORT PictureTap final : public VideoFilterBase {
public:
    /// Throws std::invalid_argument for a null source or box.
    PictureTap(const boost::intrusive_ptr<IStreamVideo>& source, std::shared_ptr<PictureBox> box);

    boost::intrusive_ptr<IDataVideo> ReadVideo() override;

private:
    const std::shared_ptr<PictureBox> box;
};

} // namespace Kestra::Proc
