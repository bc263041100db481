// SPDX-License-Identifier: GPL-3.0-or-later
// EditorFakes::BusTrace: what goes over the bus between the model and an export, as text.
#pragma once

#include "Composition/Object.h"
#include "Export/ExportStreams.h"
#include "FastTrack/Object.h"
#include "Message/Types.h"
#include "PubSub/Subscriber.h"
#include <functional>
#include <string>
#include <typeinfo>
#include <utility>

namespace EditorFakes {

/// Hears the messages about all objects of T. Made ahead of the views, it hears each message before whoever answers it:
/// it subscribes to an object as soon as that is offered.
template <class T>
class BusEar
    : public PubSub::Subscriber<Message::Types::Add<T>, Message::Types::Added<T>, Message::Types::Change<T>,
                                Message::Types::Changed<T>, Message::Types::Remove<T>, Message::Types::Removed<T>> {
public:
    using Sink = std::function<void(const std::string&)>;
    using Description = std::string (*)(const T&);

    /// The sink is asked for at each message.
    BusEar(std::string objectName, Description stateOf, const Sink& receiver)
        : name(std::move(objectName))
        , describe(stateOf)
        , sink(receiver) {
        this->subscribeAll(typeid(T));
    }

    void notify(const Message::Types::Add<T>& message) override {
        this->subscribe(message.object);
        tell("Add", *message.object);
    }
    void notify(const Message::Types::Added<T>& message) override { tell("Added", *message.object); }
    void notify(const Message::Types::Change<T>& message) override { tell("Change", *message.value); }
    void notify(const Message::Types::Changed<T>& message) override { tell("Changed", *message.object); }
    void notify(const Message::Types::Remove<T>& message) override { tell("Remove", *message.object); }
    void notify(const Message::Types::Removed<T>& message) override {
        tell("Removed", *message.object);
        this->unsubscribe(message.object);
    }

private:
    void tell(const std::string& kind, const T& value) {
        if (sink)
            sink("bus " + kind + ' ' + name + ": " + describe(value));
    }

    std::string name;
    Description describe;
    const Sink& sink;
};

class BusTrace {
public:
    BusTrace();
    BusTrace(const BusTrace&) = delete;
    BusTrace& operator=(const BusTrace&) = delete;
    /// Called by the model before it owns its objects.
    void attend(const Composition::Object& composition, const FastTrack::Object& fastTrack);

    /// Told of every message.
    std::function<void(const std::string&)> onMessage;

private:
    BusEar<Stream::VideoObject> videoStreams;
    BusEar<Stream::AudioObject> audioStreams;
    BusEar<Composition::Object> compositions;
    BusEar<FastTrack::Object> fastTracks;
};

} // namespace EditorFakes
