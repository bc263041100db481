// SPDX-License-Identifier: GPL-3.0-or-later
// Project::ExportStreams: the owner of the export streams of one medium.
#pragma once

#include "EditorProject/ExportSession.h"
#include "Export/ExportStreams.h"
#include <algorithm>
#include <functional>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Project {

/// What is known of an adopted stream without looking at it: its user owns it, and may take it away without a word.
template <class M>
struct Adoption {
    enum class Stage { Ordered, Built, Available };

    std::uint64_t number = 0; ///< in the order of the adoptions
    const M* source = nullptr;
    Types::Range range;
    Stage stage = Stage::Ordered;
    std::shared_ptr<ExportSession> session{};
};

/// Adopts the streams that are offered with a description of this project and has them built, once more when source or
/// range is changed before a stream is taken. What its user requests (above all `using`) is applied. One thread.
template <class M, class I>
class ExportStreams : private Stream::View<M, I> {
public:
    using Object = Stream::Object<M, I>;
    using Stage = typename Adoption<M>::Stage;

    /// `ordered` is called, inside a delivery, when there is something to build. `isOwn` tells whether a description
    /// stands in the project's composition; others' streams are others' to adopt.
    ExportStreams(std::function<void()> ordered, ExportSessions& sessions, std::function<bool(const M*)> isOwn)
        : ordered(std::move(ordered))
        , sessions(sessions)
        , isOwn(std::move(isOwn)) {
        this->processAddRequests(true);
    }

    const std::unordered_map<const Object*, Adoption<M>>& adoptions() const { return adopted; }

    /// The stream that waits longest to be built or to be announced; null when none does.
    const Object* next() const {
        const Object* found = nullptr;
        for (const auto& entry : adopted)
            if (entry.second.stage != Stage::Available && (!found || entry.second.number < adopted.at(found).number))
                found = entry.first;
        return found;
    }
    Adoption<M>& adoption(const Object* stream) { return adopted.at(stream); }

    /// The last thing that the caller does: a receiver may destroy everything.
    void publishImpl(const Object* stream, boost::intrusive_ptr<I> impl) {
        adopted.at(stream).stage = Stage::Built;
        const auto chain = this->streamChange(stream);
        chain->impl = std::move(impl);
        ++chain->version;
    }
    /// As publishImpl().
    void publishAvailable(const Object* stream) {
        adopted.at(stream).stage = Stage::Available;
        const auto chain = this->streamChange(stream);
        chain->available = true;
    }
    /// The stream will not become available.
    void giveUp(const Object* stream) { adopted.at(stream).stage = Stage::Available; }

    /// Has every stream that nobody uses yet built once more: the composition shows something else now.
    void rebuild() {
        std::vector<const Object*> unused;
        for (const auto& entry : adopted)
            if (!entry.first->using_)
                unused.push_back(entry.first);
        for (const Object* const stream : unused) {
            const auto entry = adopted.find(stream);
            if (entry == adopted.end()) // a receiver has taken it away meanwhile
                continue;
            entry->second.stage = Stage::Ordered;
            const auto chain = this->streamChange(stream);
            chain->impl.reset();
            chain->available = false;
        }
        if (!unused.empty())
            ordered();
    }

    /// Lets go of the streams that render a description which leaves the model. Nothing is published: their user goes
    /// too.
    void forgetSource(const M* source) {
        for (;;) {
            const auto found = std::find_if(adopted.begin(), adopted.end(),
                                            [source](const auto& entry) { return entry.second.source == source; });
            if (found == adopted.end())
                return;
            this->streamForget(found->first);
        }
    }

protected:
    void addRequested(Object* stream) override {
        if (isOwn(stream->source))
            Stream::View<M, I>::addRequested(stream);
    }
    void streamAdded(const Object* stream) override {
        Adoption<M>& record = adopted[stream];
        record = {++numbers, stream->source, stream->range, Stage::Ordered};
        enterSession(record);
        ordered();
    }
    void streamRemoved(const Object* stream) override {
        const auto entry = adopted.find(stream);
        if (entry == adopted.end())
            return;
        entry->second.source = nullptr;
        tellSession(entry->second);
        adopted.erase(entry);
    }
    void changeRequested(Object* stream, Object* proposed) override {
        const bool other = stream->source != proposed->source || stream->range != proposed->range;
        if (other && !proposed->using_) {
            proposed->impl.reset(); // shows something else than is asked for now
            proposed->available = false;
            Adoption<M>& record = adopted[stream];
            record.source = proposed->source;
            record.range = proposed->range;
            record.stage = Stage::Ordered;
            tellSession(record);
            ordered();
        }
        Stream::View<M, I>::changeRequested(stream, proposed);
    }

private:
    void enterSession(Adoption<M>& record) {
        if constexpr (std::is_same_v<M, Media::Video>)
            record.session = sessions.begin(record.source, record.range);
        else
            record.session = sessions.join(record.range);
    }
    void tellSession(const Adoption<M>& record) {
        if constexpr (std::is_same_v<M, Media::Video>) {
            record.session->pictures = record.source;
            record.session->range = record.range;
        }
    }

    std::function<void()> ordered;
    std::uint64_t numbers = 0;
    ExportSessions& sessions;
    std::function<bool(const M*)> isOwn;
    std::unordered_map<const Object*, Adoption<M>> adopted;
};

using VideoStreams = ExportStreams<Media::Video, Kestra::Proc::IStreamVideo>;
using AudioStreams = ExportStreams<Media::Audio, Kestra::Proc::IStreamAudio>;

} // namespace Project
