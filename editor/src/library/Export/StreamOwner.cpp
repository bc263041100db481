// SPDX-License-Identifier: GPL-3.0-or-later
#include "Export/StreamOwner.h"

#include "Composition/CompositionView.h"
#include "Kestra/Proc/ProcException.h"
#include <QPointer>
#include <map>
#include <utility>

namespace Export {

namespace {

bool describes(const Media::Video* description, const Composition::Object& composition) {
    return description && (description == composition.video() || composition.contains(description));
}

bool describes(const Media::Audio* description, const Composition::Object& composition) {
    return description && (description == composition.audio() || composition.contains(description));
}

/// Those of one medium.
template <class M, class I>
class OwnedStreams : private Stream::View<M, I> {
    using Base = Stream::View<M, I>;

public:
    using Object = Stream::Object<M, I>;
    using Make = std::function<boost::intrusive_ptr<I>(const Object&)>;

    OwnedStreams(StreamOwner* owner, const Composition::Object& composition, Make make)
        : owner(owner)
        , composition(composition)
        , make(std::move(make)) {
        this->processAddRequests(true);
    }

    void forgetWithdrawn() {
        for (auto entry = sources.begin(); entry != sources.end();) {
            const auto [stream, source] = *entry++;
            if (!describes(source, composition))
                this->streamForget(stream);
        }
    }

private:
    void addRequested(Object* stream) override {
        if (describes(stream->source, composition))
            Base::addRequested(stream);
    }
    void streamAdded(const Object* stream) override { order(stream, stream->source); }
    void streamRemoved(const Object* stream) override { sources.erase(stream); }
    void changeRequested(Object* stream, Object* proposed) override {
        const bool other = stream->source != proposed->source || stream->range != proposed->range;
        if (other && !proposed->using_) {
            proposed->impl.reset(); // shows something else than is asked for now
            proposed->available = false;
            order(stream, proposed->source);
        }
        Base::changeRequested(stream, proposed);
    }

    /// Never made inside the delivery.
    void order(const Object* stream, const M* source) {
        sources[stream] = source;
        QMetaObject::invokeMethod(
            &context, [this, stream] { publish(stream); }, Qt::QueuedConnection);
    }
    void publish(const Object* stream) {
        if (!waits(stream))
            return;
        // Whoever hears of it may take the stream, or all of this, away.
        const QPointer<QObject> alive(&context);
        const boost::intrusive_ptr<I> made = tryToMake(*stream);
        if (!made || !alive || !waits(stream))
            return;
        {
            const auto chain = this->streamChange(stream);
            chain->impl = made;
            ++chain->version;
        }
        if (alive && waits(stream))
            this->streamChange(stream)->available = true;
    }
    bool waits(const Object* stream) const { return sources.count(stream) != 0 && !stream->available; }
    boost::intrusive_ptr<I> tryToMake(const Object& stream) {
        try {
            boost::intrusive_ptr<I> made = make(stream);
            if (!made)
                KESTRA_THROW(Kestra::Proc::ProcException(Kestra::Proc::TranscodingError::InvalidArgument,
                                                         "The model made no stream for an export"));
            return made;
        } catch (...) {
            Q_EMIT owner->streamFailed(std::current_exception());
            return nullptr;
        }
    }

    StreamOwner* const owner;
    const Composition::Object& composition;
    const Make make;
    /// Without looking at a stream: its user owns it, and may take it away without a word.
    std::map<const Object*, const M*> sources;
    QObject context;
};

} // namespace

struct EDITOREXPORT_NO_EXPORT StreamOwner::Private : private Composition::CompositionView {
    Private(StreamOwner* owner, const Composition::Object& composition, MakePictures makePictures, MakeSound makeSound)
        : pictures(owner, composition, std::move(makePictures))
        , sound(owner, composition, std::move(makeSound)) {
        compositionObserve(&composition);
    }

private:
    using CompositionView::compositionChanged;
    // The user of a stream takes its description out of the composition when it goes, and says nothing of the stream.
    void compositionChanged(const Composition::Object*, const Composition::Object*) override {
        pictures.forgetWithdrawn();
        sound.forgetWithdrawn();
    }

    OwnedStreams<Media::Video, Kestra::Proc::IStreamVideo> pictures;
    OwnedStreams<Media::Audio, Kestra::Proc::IStreamAudio> sound;
};

StreamOwner::StreamOwner(const Composition::Object& composition, MakePictures makePictures, MakeSound makeSound,
                         QObject* parent)
    : QObject(parent)
    , d(std::make_unique<Private>(this, composition, std::move(makePictures), std::move(makeSound))) {}

StreamOwner::~StreamOwner() = default;

} // namespace Export
