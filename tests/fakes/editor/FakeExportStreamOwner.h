// SPDX-License-Identifier: GPL-3.0-or-later
// EditorFakes::FakeExportStreamOwner: the model's side of export streams.
#pragma once

#include "Export/ExportStreams.h"
#include <utility>
#include <vector>

namespace EditorFakes {

/// Adopts every stream that is offered, and grants every change, unless told otherwise. The operations are for one of
/// the adopted streams; without a name, the one that was adopted last.
template <class M, class I>
class FakeExportStreamOwner : protected Stream::View<M, I> {
public:
    using Object = Stream::Object<M, I>;

    FakeExportStreamOwner() { adoptOffers(true); }

    void adoptOffers(bool on) { this->processAddRequests(on); }
    void refuseChanges(bool on) { refusing = on; }

    /// Null when none is there.
    const Object* stream() const { return adopted.empty() ? nullptr : adopted.back(); }
    const std::vector<const Object*>& allStreams() const { return adopted; }

    void setImpl(boost::intrusive_ptr<I> impl, const Object* object = nullptr) {
        this->streamChange(chosen(object))->impl = std::move(impl);
    }
    void setAvailable(bool available, const Object* object = nullptr) {
        this->streamChange(chosen(object))->available = available;
    }
    void setUsing(bool isUsed, const Object* object = nullptr) { this->streamChange(chosen(object))->using_ = isUsed; }
    void setVersion(std::uint64_t version, const Object* object = nullptr) {
        this->streamChange(chosen(object))->version = version;
    }
    void remove(const Object* object = nullptr) { this->streamRemove(chosen(object)); }

private:
    const Object* chosen(const Object* object) const { return object ? object : stream(); }

    void streamAdded(const Object* object) override { adopted.push_back(object); }
    void streamRemoved(const Object* object) override {
        for (auto place = adopted.begin(); place != adopted.end(); ++place) {
            if (*place == object) {
                adopted.erase(place);
                return;
            }
        }
    }
    void changeRequested(Object* object, Object* proposed) override {
        if (!refusing)
            Stream::View<M, I>::changeRequested(object, proposed);
    }

    bool refusing = false;
    std::vector<const Object*> adopted;
};

using FakeVideoStreamOwner = FakeExportStreamOwner<Media::Video, Kestra::Proc::IStreamVideo>;
using FakeAudioStreamOwner = FakeExportStreamOwner<Media::Audio, Kestra::Proc::IStreamAudio>;

} // namespace EditorFakes
