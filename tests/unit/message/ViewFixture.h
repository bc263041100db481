// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "unit/message/RecordingView.h"
#include <algorithm>
#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>

/// Three items at ascending addresses, three views and a spy.
class ViewFixture : public ::testing::Test {
protected:
    std::array<Item, 3> items;
    Namer names{items.data(), 3};
    Log log;
    BusSpy spy{names, log};
    std::unique_ptr<RecordingView> owner = make("owner");
    std::unique_ptr<RecordingView> observer = make("observer");
    std::unique_ptr<RecordingView> other = make("other");

    Item* const first = &items[0];
    Item* const second = &items[1];
    Item* const third = &items[2];

    Message::View<Item>* observerView() { return observer.get(); }
    Message::View<Item>* otherView() { return other.get(); }

    std::unique_ptr<RecordingView> make(const std::string& name) {
        return std::make_unique<RecordingView>(name, names, log);
    }
    /// An owned item with an observer, and nothing in the log.
    void ownAndObserve(Item* item) {
        owner->own(item);
        observer->observe(item);
        log.clear();
    }
};
