// SPDX-License-Identifier: GPL-3.0-or-later
#include "unit/message/ViewModel.h"

namespace {

std::function<std::uint64_t(const ViewModel::State&)> hearersOf(int item) {
    return [item](const ViewModel::State& view) {
        const auto found = view.hears.find(item);
        return found == view.hears.end() ? 0 : found->second;
    };
}

std::function<std::uint64_t(const ViewModel::State&)> obeyersOf(int item) {
    return [item](const ViewModel::State& view) {
        const auto found = view.obeys.find(item);
        return found == view.obeys.end() ? 0 : found->second;
    };
}

std::uint64_t nobody(const ViewModel::State&) {
    return 0;
}

} // namespace

std::string ViewModel::State::tableText() const {
    std::string text;
    for (int item = 0; item < ITEMS; ++item)
        text += table.count(item) == 0 ? '-' : owns(item) ? 'O' : 'o';
    return text;
}

ViewModel::ViewModel() {
    for (int index = 0; index < VIEWS; ++index) {
        views[index] = std::make_shared<State>(index);
        views[index]->born = ++clock;
    }
}

void ViewModel::run(const Step& step) {
    reactions.arm(step.reactions);
    run(step.operation);
}

void ViewModel::run(const Operation& operation) {
    const View view = views[operation.view];
    if (operation.kind == Kind::Copy)
        return copy(operation);
    if (operation.kind != Kind::Destroy)
        return runOnView(view, operation);
    view->alive = false;
    views[operation.view] = std::make_shared<State>(operation.view);
    views[operation.view]->born = ++clock;
}

void ViewModel::runOnView(const View& view, const Operation& operation) {
    switch (operation.kind) {
    case Kind::Own:
        return own(view, operation.item, operation.value);
    case Kind::Add:
        return add(view, operation.item, operation.value);
    case Kind::Change:
        return change(view, operation.item, operation.value);
    case Kind::ChangeFirst:
        if (!view->table.empty())
            change(view, view->table.begin()->first, operation.value);
        return;
    case Kind::Remove:
        return remove(view, operation.item);
    case Kind::RemoveFirst:
        return removeFirst(view);
    case Kind::Observe:
        return observe(view, operation.item);
    case Kind::Forget:
        return forget(view, operation.item);
    case Kind::ObserveNew:
        return toggle(view->hearsNew, operation.isOn());
    case Kind::ObserveAll:
        return observeAll(view);
    case Kind::ProcessAdds:
        return toggle(view->adopts, operation.isOn());
    case Kind::Destroy:
    case Kind::Copy:
        return;
    }
}

void ViewModel::copy(const Operation& operation) {
    const View& original = views[operation.value % VIEWS];
    const View twin = std::make_shared<State>(operation.view);
    twin->born = ++clock;
    for (const auto& entry : original->table) {
        twin->table[entry.first] = false;
        hear(*twin, entry.first);
    }
    toggle(twin->hearsNew, original->hearsNew != 0);
    views[operation.view]->alive = false;
    views[operation.view] = twin;
}

std::set<int> ViewModel::ownedItems() const {
    std::set<int> all;
    for (const View& view : views)
        for (const auto& [item, mine] : view->table)
            if (mine)
                all.insert(item);
    return all;
}

void ViewModel::own(const View& view, int item, int value) {
    numbers[item] = value;
    adopt(view, item);
}

void ViewModel::add(const View& view, int item, int value) {
    numbers[item] = value;
    hear(*view, item);
    publish(
        "Add", [this, item] { return text(item) + " " + text(item); }, nobody,
        [](const State& each) { return each.adopts; }, [this, item](const View& adopter) { adopt(adopter, item); });
}

void ViewModel::change(const View& view, int item, int value) {
    if (view->owns(item))
        return apply(view, item, value);
    publish(
        "Change", [this, item, value] { return text(item) + " " + std::to_string(value); }, obeyersOf(item), nobody,
        [this, item, value](const View& each) {
            if (each->owns(item))
                apply(each, item, value);
        });
}

void ViewModel::remove(const View& view, int item) {
    if (!view->owns(item))
        return publish(
            "Remove", [this, item] { return text(item); }, obeyersOf(item), nobody,
            [this, item](const View& each) { removeOnRequest(each, item); });
    tellRemoved(item);
    if (!view->alive)
        return;
    view->obeys.erase(item);
    if (disappear(view, item))
        view->table.erase(item);
}

void ViewModel::removeOnRequest(const View& view, int item) {
    if (!view->owns(item))
        return;
    tellRemoved(item);
    if (!view->alive || !disappear(view, item))
        return;
    view->table.erase(item);
    view->obeys.erase(item);
}

void ViewModel::removeFirst(const View& view) {
    if (view->table.empty())
        return;
    const auto [item, mine] = *view->table.begin();
    if (mine)
        return remove(view, item);
    log.push_back("Remove null");
}

void ViewModel::observe(const View& view, int item) {
    view->table[item] = false;
    hear(*view, item);
    appear(view, item);
}

void ViewModel::observeAll(const View& view) {
    toggle(view->hearsNew, true);
    std::set<int> waiting = enumerate();
    observingAll.push_back(&waiting);
    while (view->alive && !waiting.empty()) {
        const int item = *waiting.begin();
        waiting.erase(waiting.begin());
        observe(view, item);
    }
    observingAll.pop_back();
}

void ViewModel::forget(const View& view, int item) {
    view->table.erase(item);
    view->hears.erase(item);
    disappear(view, item);
}

void ViewModel::adopt(const View& view, int item) {
    view->table[item] = true;
    if (!appear(view, item))
        return;
    if (view->obeys.emplace(item, clock + 1).second)
        ++clock;
    publish(
        "Added", [this, item] { return text(item); }, hearersOf(item), [](const State& each) { return each.hearsNew; },
        [this, item](const View& each) { observe(each, item); });
}

void ViewModel::apply(const View& view, int item, int value) {
    const int before = numbers[item];
    numbers[item] = value;
    if (alter(view, item, before))
        publish(
            "Changed", [this, item, before] { return text(item) + " " + std::to_string(before); }, hearersOf(item),
            nobody, [this, item, before](const View& each) { alter(each, item, before); });
}

void ViewModel::tellRemoved(int item) {
    for (std::set<int>* waiting : observingAll)
        waiting->erase(item);
    publish(
        "Removed", [this, item] { return text(item); }, hearersOf(item), nobody,
        [this, item](const View& each) {
            if (!disappear(each, item))
                return;
            each->table.erase(item);
            each->hears.erase(item);
        });
}

std::set<int> ViewModel::enumerate() {
    log.push_back("Enumerate null");
    for (const View& view : subscribed([](const State& each) { return each.born; }))
        for (const auto& [item, mine] : view->table)
            if (mine)
                log.push_back("Enumerated " + text(item));
    return ownedItems();
}

bool ViewModel::appear(const View& view, int item) {
    return hook(view, Hook::Added, text(item)) && changed(view, 0, numbers[item], text(item) + " 0 " + text(item)) &&
           hook(view, Hook::Changed1, text(item));
}

bool ViewModel::alter(const View& view, int item, int before) {
    const std::string old = std::to_string(before);
    return changed(view, before, numbers[item], text(item) + " " + old + " " + text(item)) &&
           hook(view, Hook::Changed2, text(item) + " " + old) && hook(view, Hook::Changed1, text(item));
}

bool ViewModel::disappear(const View& view, int item) {
    return changed(view, numbers[item], 0, text(item) + " " + text(item) + " 0") &&
           hook(view, Hook::Changed1, text(item)) && hook(view, Hook::Removed, text(item));
}

bool ViewModel::changed(const View& view, int before, int after, const std::string& arguments) {
    if (parts)
        for (const std::string& part : parts(before, after))
            log.push_back(std::to_string(view->index) + " " + part);
    return hook(view, Hook::Changed3, arguments);
}

bool ViewModel::hook(const View& view, Hook which, const std::string& arguments) {
    log.push_back(std::to_string(view->index) + " " + nameOf(which) + " " + arguments);
    log.push_back("  table " + view->tableText());
    if (const auto operation = reactions.take(view->index, which)) {
        ++reentered[static_cast<std::size_t>(operation->kind)];
        run(*operation);
    }
    return view->alive;
}

void ViewModel::hear(State& view, int item) {
    if (view.hears.emplace(item, clock + 1).second)
        ++clock;
}

void ViewModel::toggle(std::uint64_t& since, bool on) {
    if (on != (since != 0))
        since = on ? ++clock : 0;
}

std::string ViewModel::text(int item) const {
    return "#" + std::to_string(item) + "=" + std::to_string(numbers[item]);
}

/// The longest subscribed first.
std::vector<ViewModel::View> ViewModel::subscribed(const Since& since) const {
    std::map<std::uint64_t, View> found;
    for (const View& view : views)
        if (const std::uint64_t time = since(*view))
            found[time] = view;
    std::vector<View> order;
    for (const auto& entry : found)
        order.push_back(entry.second);
    return order;
}

// The receivers are fixed at the start; who has left by its turn is passed over. Those of all items come last, and the
// first of these writes the message down.
void ViewModel::publish(const std::string& message, std::function<std::string()> arguments, const Since& toItem,
                        const Since& toAll, const Handler& handle) {
    const std::vector<View> first = subscribed(toItem);
    const std::vector<View> last = subscribed(toAll);
    for (const View& view : first)
        if (view->alive && toItem(*view))
            handle(view);
    log.push_back(message + " " + arguments());
    for (const View& view : last)
        if (view->alive && toAll(*view))
            handle(view);
}
