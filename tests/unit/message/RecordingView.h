// SPDX-License-Identifier: GPL-3.0-or-later
// A model object for tests, and views that write down what they see.
#pragma once

#include "Message/View.h"
#include "unit/message/BusSpy.h"
#include <functional>
#include <map>
#include <string>
#include <utility>

struct Item : virtual PubSub::Object {
    Item() = default;
    explicit Item(int start)
        : number(start) {}
    int number = 0;
};

class Namer : public NamerOf<Item> {
public:
    Namer(const Item* start, int size)
        : NamerOf(start, size, [](const Item& item) { return item.number; }) {}
};

using BusSpy = BusSpyOf<Item>;

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
