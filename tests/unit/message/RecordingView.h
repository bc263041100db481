// A model object for tests, and views and a bus spy that write down what they see.
#pragma once

#include "Message/View.h"
#include <functional>
#include <map>
#include <string>
#include <vector>

struct Item : virtual PubSub::Object {
    Item() = default;
    explicit Item(int start)
        : number(start) {}
    int number = 0;
};

using Log = std::vector<std::string>;

/// Names objects in the log: #0, #1 ... by their place in `first`'s array; "empty" is any other object with number 0.
class Namer {
public:
    Namer(const Item* start, int size)
        : first(start)
        , count(size) {}
    std::string operator()(const Item* item) const {
        if (!item)
            return "null";
        for (int index = 0; index < count; ++index)
            if (item == first + index)
                return "#" + std::to_string(index) + "=" + std::to_string(item->number);
        return std::to_string(item->number);
    }

private:
    const Item* first;
    int count;
};

/// Logs each hook as "name hook arguments" and then runs the action set for it ("added", "changed3" ...).
class RecordingView : public Message::View<Item> {
public:
    using View = Message::View<Item>;

    RecordingView(std::string viewName, const Namer& itemNames, Log& target)
        : name(std::move(viewName))
        , names(itemNames)
        , log(target) {}
    RecordingView(const RecordingView&) = default;
    RecordingView(std::string viewName, const RecordingView& other)
        : View(other)
        , name(std::move(viewName))
        , names(other.names)
        , log(other.log) {}

    std::map<std::string, std::function<void()>> actions;

protected:
    void added(const Item* item) override { write("added", names(item)); }
    void changed(const Item* item, const Item* before, const Item* after) override {
        write("changed3", names(item) + " " + names(before) + " " + names(after));
    }
    void changed(const Item* item, const Item* before) override {
        write("changed2", names(item) + " " + names(before));
    }
    void changed(const Item* item) override { write("changed1", names(item)); }
    void removed(const Item* item) override { write("removed", names(item)); }

private:
    void write(const std::string& hook, const std::string& arguments) {
        log.push_back(name + " " + hook + " " + arguments);
        if (const auto found = actions.find(hook); found != actions.end()) {
            const auto action = found->second; // a copy: it may destroy the view
            action();
        }
    }

    std::string name;
    const Namer& names;
    Log& log;
};

/// Logs every message about items as it passes, after the subscribers of the item itself.
class BusSpy : public PubSub::Subscriber<Message::Types::Add<Item>, Message::Types::Added<Item>,
                                         Message::Types::Change<Item>, Message::Types::Changed<Item>,
                                         Message::Types::Remove<Item>, Message::Types::Removed<Item>,
                                         Message::Types::Enumerate<Item>, Message::Types::Enumerated<Item>> {
public:
    BusSpy(const Namer& itemNames, Log& target)
        : names(itemNames)
        , log(target) {
        subscribeAll(typeid(Item));
    }

    void notify(const Message::Types::Add<Item>& m) override { write("Add", names(m.object) + " " + names(m.value)); }
    void notify(const Message::Types::Added<Item>& m) override { write("Added", names(m.object)); }
    void notify(const Message::Types::Change<Item>& m) override {
        write("Change", names(m.object) + " " + names(m.value));
    }
    void notify(const Message::Types::Changed<Item>& m) override {
        write("Changed", names(m.object) + " " + names(m.previous));
    }
    void notify(const Message::Types::Remove<Item>& m) override { write("Remove", names(m.object)); }
    void notify(const Message::Types::Removed<Item>& m) override { write("Removed", names(m.object)); }
    void notify(const Message::Types::Enumerate<Item>& m) override { write("Enumerate", names(m.object)); }
    void notify(const Message::Types::Enumerated<Item>& m) override { write("Enumerated", names(m.object)); }

private:
    void write(const std::string& message, const std::string& arguments) { log.push_back(message + " " + arguments); }

    const Namer& names;
    Log& log;
};
