// SPDX-License-Identifier: GPL-3.0-or-later
// Steps done to the product's own views of a kind of objects, and what they come to against the model's.
#pragma once

#include "unit/message/BusSpy.h"
#include "unit/message/ViewModel.h"
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

/// What a view tells, for who listens. `T` is the object's type.
template <class T>
class Telling {
public:
    std::function<void(Hook hook, const T* object, const T* before, const T* after)> onHook; ///< may destroy the view
    std::function<void(const std::string& part)> onPart;

protected:
    void tell(Hook hook, const T* object, const T* before = nullptr, const T* after = nullptr) {
        if (const auto action = onHook) // a copy, as it may go with the view
            action(hook, object, before, after);
    }
    void part(const std::string& name) {
        if (onPart)
            onPart(name);
    }
};

/// ObjectKind has the type of the objects, what a number means in one (set, numberOf), and a View that is Telling.
template <class ObjectKind>
class RealViews {
    using T = typename ObjectKind::Object;
    using View = typename ObjectKind::View;

public:
    RealViews() {
        for (int index = 0; index < VIEWS; ++index)
            place(index, std::make_unique<View>());
    }

    void run(const Step& step) {
        reactions.arm(step.reactions);
        run(step.operation);
    }

    /// Empty when all that was told and all that the views hold is what the model says.
    std::string differenceTo(const ViewModel& model) {
        if (log != model.log)
            return "it told:" + joined(log) + "\nin place of:" + joined(model.log);
        for (int item = 0; item < ITEMS; ++item)
            if (ObjectKind::numberOf(objects[item]) != model.numbers[item])
                return "object " + std::to_string(item) + " is " + std::to_string(ObjectKind::numberOf(objects[item])) +
                       ", not " + std::to_string(model.numbers[item]);
        for (int index = 0; index < VIEWS; ++index)
            if (!holds(*views[index], model.view(index)))
                return "view " + std::to_string(index) + " holds " + tableText(index) + ", not " +
                       model.view(index).tableText();
        std::set<int> owned;
        for (const T* object : views[0]->enumerateAll())
            owned.insert(static_cast<int>(object - objects.data()));
        return owned == model.ownedItems() ? "" : "others are owned than the model's";
    }

    Log log;

private:
    static std::string joined(const Log& log) {
        std::string text;
        for (const std::string& line : log)
            text += "\n  " + line;
        return text;
    }

    void place(int index, std::unique_ptr<View> view) {
        view->onHook = [this, index](Hook hook, const T* object, const T* before, const T* after) {
            const std::string name = std::to_string(index) + " ";
            log.push_back(name + nameOf(hook) + " " + names(object) + (before ? " " + names(before) : "") +
                          (after ? " " + names(after) : ""));
            log.push_back("  table " + tableText(index));
            if (const auto operation = reactions.take(index, hook))
                run(*operation);
        };
        view->onPart = [this, index](const std::string& part) { log.push_back(std::to_string(index) + " " + part); };
        views[index] = std::move(view);
    }

    std::string tableText(int index) const {
        std::string text;
        for (const T& object : objects)
            text += !views[index]->isObserved(&object) ? '-' : views[index]->isOwned(&object) ? 'O' : 'o';
        return text;
    }

    bool holds(const View& view, const ViewModel::State& model) const {
        std::map<int, bool> table;
        for (const T* object : view.objects())
            table[static_cast<int>(object - objects.data())] = view.isOwned(object);
        bool same =
            table == model.table && view.object() == (table.empty() ? nullptr : objects.data() + table.begin()->first);
        for (int index = 0; index < ITEMS; ++index) {
            const T* object = &objects[index];
            const bool there = table.count(index) != 0;
            same = same && view.isObserved(object) == there &&
                   view.ownerPointer(object) == (model.owns(index) || !there ? object : nullptr) &&
                   view.ownedPtr(object) == (model.owns(index) ? object : nullptr);
        }
        return same;
    }

    void run(const Operation& operation) {
        if (operation.kind == Kind::Destroy) {
            views[operation.view].reset(); // first, so that the next one often lies at the same address
            place(operation.view, std::make_unique<View>());
        } else if (operation.kind == Kind::Copy) {
            place(operation.view, std::make_unique<View>(*views[operation.value % VIEWS]));
        } else {
            runOn(*views[operation.view], operation);
        }
    }

    void runOn(View& view, const Operation& operation) {
        T* object = &objects[operation.item];
        switch (operation.kind) {
        case Kind::Own:
            return ObjectKind::set(*view.own(object), operation.value);
        case Kind::Add:
            return ObjectKind::set(*view.add(object), operation.value);
        case Kind::Change:
            return ObjectKind::set(*view.change(object), operation.value);
        case Kind::ChangeFirst:
            return ObjectKind::set(*view.change(nullptr), operation.value);
        case Kind::Remove:
            return view.remove(object);
        case Kind::RemoveFirst:
            return view.remove(nullptr);
        case Kind::Observe:
            return view.observe(object);
        case Kind::Forget:
            return view.forget(object);
        case Kind::ObserveNew:
            return view.observeNew(operation.isOn());
        case Kind::ObserveAll:
            return view.observeAll();
        case Kind::ProcessAdds:
            return view.processAddRequests(operation.isOn());
        case Kind::Destroy:
        case Kind::Copy:
            return;
        }
    }

    std::array<T, ITEMS> objects;
    NamerOf<T> names{objects.data(), ITEMS, &ObjectKind::numberOf};
    BusSpyOf<T> spy{names, log};
    Reactions reactions;
    std::array<std::unique_ptr<View>, VIEWS> views;
};
