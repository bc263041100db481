// SPDX-License-Identifier: GPL-3.0-or-later
// A plain model of what views promise.
#pragma once

#include "unit/message/Steps.h"
#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

/// A view as its contract has it: a table, subscriptions with the time at which each began, and hooks that write lines.
/// Messages are function calls; who hears one is worked out from scratch each time.
class ViewModel {
public:
    struct State {
        explicit State(int place)
            : index(place) {}
        bool owns(int item) const {
            const auto found = table.find(item);
            return found != table.end() && found->second;
        }
        /// A letter for each item: O owned, o observed, - neither.
        std::string tableText() const;

        int index;
        bool alive = true;
        std::uint64_t born = 0;
        std::map<int, bool> table; ///< item, and whether it is owned
        // When each subscription began; zero or absent when it is off.
        std::uint64_t hearsNew = 0;
        std::uint64_t adopts = 0;
        std::map<int, std::uint64_t> hears;
        std::map<int, std::uint64_t> obeys;
    };

    ViewModel();
    void run(const Step& step);
    std::set<int> ownedItems() const;
    const State& view(int index) const { return *views[static_cast<std::size_t>(index)]; }

    std::vector<std::string> log;
    std::array<int, ITEMS> numbers{};
    /// What a view of its kind tells part by part before it tells of the whole change, from one number to another.
    std::function<std::vector<std::string>(int before, int after)> parts;
    std::array<int, KINDS> reentered{}; ///< how often each kind ran inside a hook

private:
    /// Kept by whoever is inside one of the view's operations when the view goes.
    using View = std::shared_ptr<State>;
    /// Since when a view is subscribed; zero if it is not.
    using Since = std::function<std::uint64_t(const State&)>;
    using Handler = std::function<void(const View&)>;

    void run(const Operation& operation);
    void runOnView(const View& view, const Operation& operation);
    void copy(const Operation& operation);

    void own(const View& view, int item, int value);
    void add(const View& view, int item, int value);
    void change(const View& view, int item, int value);
    void remove(const View& view, int item);
    void removeFirst(const View& view);
    void observe(const View& view, int item);
    void observeAll(const View& view);
    void forget(const View& view, int item);

    void adopt(const View& view, int item);
    void apply(const View& view, int item, int value);
    void removeOnRequest(const View& view, int item);
    void tellRemoved(int item);
    std::set<int> enumerate();

    // Hook sequences; false when the view did not survive them.
    bool appear(const View& view, int item);
    bool alter(const View& view, int item, int before);
    bool disappear(const View& view, int item);
    bool changed(const View& view, int before, int after, const std::string& arguments);
    bool hook(const View& view, Hook which, const std::string& arguments);

    void hear(State& view, int item);
    void toggle(std::uint64_t& since, bool on);
    std::string text(int item) const;
    std::vector<View> subscribed(const Since& since) const;
    void publish(const std::string& message, std::function<std::string()> arguments, const Since& toItem,
                 const Since& toAll, const Handler& handle);

    std::array<View, VIEWS> views;
    Reactions reactions;
    std::vector<std::set<int>*> observingAll; ///< what the calls of observeAll under way have yet to observe
    std::uint64_t clock = 0;
};
