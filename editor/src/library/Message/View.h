// SPDX-License-Identifier: GPL-3.0-or-later
// Message::View: holds, observes and changes objects of the editor's model over the bus.
#pragma once

#include "Message/Details/Lifeline.h"
#include "Message/Types.h"
#include "PubSub/Publisher.h"
#include "PubSub/Subscriber.h"
#include <map>
#include <set>
#include <unordered_map>

namespace Message {

/// A view owns objects (it alone changes them and tells everyone) or observes objects that another view owns (it is
/// told, and asks the owner for changes). T derives virtually from PubSub::Object; its default value is the empty
/// value, which stands for the state before an object came and after it left. Objects are borrowed: they must outlive
/// their time in any view but for its destructor, which does not look into them, and the removed() of their owner,
/// which may destroy them. One thread. Hooks may call the view, and may destroy it.
template <class T>
class View {
public:
    class SetterChain;

    explicit View(const T* object = nullptr);
    /// The copy observes what the other view holds and owns nothing; it hears of new objects if the other does. No hook
    /// runs.
    View(const View& other);
    View& operator=(const View&) = delete;

    /// Filled through its target, a chain takes effect when it is destroyed. `add` asks for an owner, `own` makes this
    /// view it.
    SetterChain add(T* object);
    SetterChain own(T* object);
    /// A chain on a copy of the object. Null means object(); with nothing in the view the chain has no effect.
    SetterChain change(const T* object);
    /// Null means the first object if this view owns it; nobody is reached if it does not.
    void remove(const T* object);
    /// Makes the object an observed one, even if this view owned it.
    void observe(const T* object);
    /// Observes every object that any view owns now, and those to come.
    void observeAll();
    void observeNew(bool on);
    /// Whether this view adopts the objects for which others ask for an owner.
    void processAddRequests(bool on);
    /// Lets go of an object, even an owned one, without telling anybody.
    void forget(const T* object);
    /// Every object that any view owns now, this one included.
    std::set<const T*> enumerateAll();
    std::set<const T*> objects() const;
    /// The object of the lowest address; null in an empty view.
    const T* object() const;
    /// Whether the object is in the view, observed or owned.
    bool isObserved(const T* object) const;
    bool isOwned(const T* object) const;
    /// Null for an object that is only observed; only for objects of the view.
    T* ownedPtr(const T* object) const;
    /// Null for an object that is only observed; an object that is not in the view comes back as it is.
    T* ownerPointer(const T* object) const;

    virtual ~View();

protected:
    // The order is part of the binary interface. The first five do nothing here.
    virtual void added(const T* object);
    /// Whole values. After: the object, but the empty value when it leaves. Before: the empty value when it comes, the
    /// object when it leaves.
    virtual void changed(const T* object, const T* before, const T* after);
    /// Real changes only.
    virtual void changed(const T* object, const T* before);
    /// The object came, changed or leaves.
    virtual void changed(const T* object);
    virtual void removed(const T* object);
    /// Adopts the object.
    virtual void addRequested(T* object);
    /// Accepts: swaps the two, so that *proposed holds the old state, and tells. An override may edit *proposed first,
    /// or refuse by not calling this.
    virtual void changeRequested(T* object, T* proposed);
    virtual void removeRequested(T* object);

    /// For derived views that call several hooks in turn about an object that exists: tells whether both the view and
    /// the object outlived the last one.
    Details::Watch watch(const T* object) { return Details::Watch(lifeline, object); }

private:
    class Observer;
    class Owner;
    class Enumerator;
    class Departures;

    void doAdd(T* object, bool own);
    void doChange(const T* object, T* value);
    void doRemove(const T* object);

    void notify(const Types::Add<T>& message);
    void notify(const Types::Added<T>& message);
    void notify(const Types::Change<T>& message);
    void notify(const Types::Changed<T>& message);
    void notify(const Types::Remove<T>& message);
    void notify(const Types::Removed<T>& message);
    void notify(const Types::Enumerate<T>& message);

    void adopt(T* object);
    T* owned(const T* object) const;
    // Hook sequences. What a hook destroys is not used by the hooks that would follow.
    /// Both tell whether view and object outlived the hooks.
    bool appeared(const T* object);
    bool altered(const T* object, const T* before);
    /// Tells whether the view outlived the hooks. The topic is the object's, found without looking into it: it may be
    /// gone already, and may be null.
    bool disappeared(const T* object, const PubSub::Object* topic);

    /// Asks owners, hears them.
    class Observer : public PubSub::Publisher<Types::Add<T>, Types::Change<T>, Types::Remove<T>>,
                     public PubSub::Subscriber<Types::Added<T>, Types::Changed<T>, Types::Removed<T>> {
    public:
        /// Hears of objects as they come into being; off at first.
        class Adder : public PubSub::Subscriber<Types::Added<T>> {
        public:
            explicit Adder(View* enclosing)
                : view(enclosing) {}
            void notify(const Types::Added<T>& message) override { view->notify(message); }

        private:
            View* view;
        };

        explicit Observer(View* enclosing)
            : adder(enclosing)
            , view(enclosing) {}
        void subscribe(const T* object);
        void unsubscribe(const T* object);
        void subscribeLike(const Observer& other, const T* object);
        /// Null for what is not subscribed to.
        const PubSub::Object* topicOf(const T* object) const;
        void notify(const Types::Added<T>& message) override { view->notify(message); }
        void notify(const Types::Changed<T>& message) override { view->notify(message); }
        void notify(const Types::Removed<T>& message) override { view->notify(message); }

        Adder adder;

    private:
        void subscribe(const T* object, const PubSub::Object* topic);

        View* view;
        /// The way from an object to its topic leads through the object, which may be gone when it is let go.
        std::unordered_map<const T*, const PubSub::Object*> topics;
    };

    /// Tells observers, hears requests.
    class Owner : public PubSub::Publisher<Types::Added<T>, Types::Changed<T>, Types::Removed<T>>,
                  public PubSub::Subscriber<Types::Add<T>, Types::Change<T>, Types::Remove<T>> {
    public:
        /// Hears of objects that want an owner; off at first.
        class Adder : public PubSub::Subscriber<Types::Add<T>> {
        public:
            explicit Adder(View* enclosing)
                : view(enclosing) {}
            void notify(const Types::Add<T>& message) override { view->notify(message); }

        private:
            View* view;
        };

        class Enumerator : public PubSub::Publisher<Types::Enumerated<T>>,
                           public PubSub::Subscriber<Types::Enumerate<T>> {
        public:
            explicit Enumerator(View* enclosing)
                : view(enclosing) {
                this->subscribeAll(typeid(T));
            }
            void notify(const Types::Enumerate<T>& message) override { view->notify(message); }

        private:
            View* view;
        };

        explicit Owner(View* enclosing)
            : adder(enclosing)
            , enumerator(enclosing)
            , view(enclosing) {}
        /// Only the add-request subscription adopts: asking anew for an owner of what has one changes nothing.
        void notify(const Types::Add<T>&) override {}
        void notify(const Types::Change<T>& message) override { view->notify(message); }
        void notify(const Types::Remove<T>& message) override { view->notify(message); }

        Adder adder;
        Enumerator enumerator;

    private:
        View* view;
    };

    Observer observer;
    Owner owner;
    /// Null for an observed object, the object itself for an owned one.
    std::map<const T*, T*> table;
    Details::Lifeline lifeline;
};

} // namespace Message

#include "Message/Details/SetterChain.h"
#include "Message/Details/ViewEnumeration.h"
#include "Message/Details/ViewHandlers.h"
#include "Message/Details/ViewOperations.h"
