// SPDX-License-Identifier: GPL-3.0-or-later
// Writes down what passes on the bus about the objects of a type.
#pragma once

#include "Message/Types.h"
#include "PubSub/Subscriber.h"
#include <string>
#include <vector>

using Log = std::vector<std::string>;

/// Names objects in the log: #0=5, #1=7 ... by their place in an array and by their number, any other one by its number
/// alone.
template <class T>
class NamerOf {
public:
    NamerOf(const T* start, int size, int (*number)(const T&))
        : first(start)
        , count(size)
        , numberOf(number) {}
    std::string operator()(const T* object) const {
        if (!object)
            return "null";
        for (int index = 0; index < count; ++index)
            if (object == first + index)
                return "#" + std::to_string(index) + "=" + std::to_string(numberOf(*object));
        return std::to_string(numberOf(*object));
    }

private:
    const T* first;
    int count;
    int (*numberOf)(const T&);
};

/// Logs every message as it passes, after the subscribers of the object itself.
template <class T>
class BusSpyOf
    : public PubSub::Subscriber<Message::Types::Add<T>, Message::Types::Added<T>, Message::Types::Change<T>,
                                Message::Types::Changed<T>, Message::Types::Remove<T>, Message::Types::Removed<T>,
                                Message::Types::Enumerate<T>, Message::Types::Enumerated<T>> {
public:
    BusSpyOf(const NamerOf<T>& objectNames, Log& target)
        : names(objectNames)
        , log(target) {
        this->subscribeAll(typeid(T));
    }

    void notify(const Message::Types::Add<T>& m) override { write("Add", names(m.object) + " " + names(m.value)); }
    void notify(const Message::Types::Added<T>& m) override { write("Added", names(m.object)); }
    void notify(const Message::Types::Change<T>& m) override {
        write("Change", names(m.object) + " " + names(m.value));
    }
    void notify(const Message::Types::Changed<T>& m) override {
        write("Changed", names(m.object) + " " + names(m.previous));
    }
    void notify(const Message::Types::Remove<T>& m) override { write("Remove", names(m.object)); }
    void notify(const Message::Types::Removed<T>& m) override { write("Removed", names(m.object)); }
    void notify(const Message::Types::Enumerate<T>& m) override { write("Enumerate", names(m.object)); }
    void notify(const Message::Types::Enumerated<T>& m) override { write("Enumerated", names(m.object)); }

private:
    void write(const std::string& message, const std::string& arguments) { log.push_back(message + " " + arguments); }

    const NamerOf<T>& names;
    Log& log;
};
