// SPDX-License-Identifier: GPL-3.0-or-later
// The kinds of model objects that an export deals with: what a number means in each, and a view that tells what it
// hears.
#pragma once

#include "Composition/View.h"
#include "Export/ExportStreams.h"
#include "FastTrack/View.h"
#include "Media/View.h"
#include "unit/message/RealViews.h"
#include "unit/stream/FakeStream.h"
#include <string>
#include <vector>

namespace Sweep {

inline std::string flagText(const char* name, bool on) {
    return std::string(on ? "" : "not ") + name;
}

/// Stream::VideoObject and Stream::AudioObject. Bits of a number, lowest first: source (2), engine stream, version (2),
/// taken, available, range.
template <class M, class I, class Read>
struct StreamKind {
    using Object = Stream::Object<M, I>;
    static constexpr int NUMBERS = 256;

    static const M* sources() {
        static const M all[3];
        return all;
    }
    static I* engineStream() {
        static const boost::intrusive_ptr<I> only(new FakeStream<Read>);
        return only.get();
    }
    static void set(Object& object, int number) {
        const int source = number & 3;
        object.source = source == 0 ? nullptr : sources() + source - 1;
        object.impl = (number & 4) != 0 ? engineStream() : nullptr;
        object.version = static_cast<std::uint64_t>(number >> 3 & 3);
        object.using_ = (number & 32) != 0;
        object.available = (number & 64) != 0;
        object.range = {KTime(number >> 7), KTime(number >> 7)};
    }
    static int numberOf(const Object& object) {
        return (object.source ? static_cast<int>(object.source - sources()) + 1 : 0) | (object.impl ? 4 : 0) |
               static_cast<int>(object.version) << 3 | (object.using_ ? 32 : 0) | (object.available ? 64 : 0) |
               static_cast<int>(object.range.start.count()) << 7;
    }
    static std::vector<std::string> parts(int before, int after) {
        std::vector<std::string> told;
        const int differs = before ^ after;
        if ((differs & 3) != 0)
            told.emplace_back("source");
        if ((differs & 4) != 0)
            told.emplace_back("engine stream");
        if ((differs & 24) != 0)
            told.emplace_back("version");
        if ((differs & 32) != 0)
            told.push_back(flagText("taken", (after & 32) != 0));
        if ((differs & 64) != 0)
            told.push_back(flagText("available", (after & 64) != 0));
        return told;
    }

    class View : public Stream::View<M, I>, public Telling<Object> {
        using Base = Stream::View<M, I>;

    public:
        using Base::add, Base::own, Base::change, Base::remove, Base::observe, Base::observeAll, Base::observeNew,
            Base::processAddRequests, Base::forget, Base::enumerateAll, Base::objects, Base::object, Base::isObserved,
            Base::isOwned, Base::ownedPtr, Base::ownerPointer;

    protected:
        void streamAdded(const Object* object) override { this->tell(Hook::Added, object); }
        void streamChanged(const Object* object, const Object* before, const Object* after) override {
            Base::streamChanged(object, before, after);
            this->tell(Hook::Changed3, object, before, after);
        }
        void streamChanged(const Object* object, const Object* before) override {
            this->tell(Hook::Changed2, object, before);
        }
        void streamChanged(const Object* object) override { this->tell(Hook::Changed1, object); }
        void streamRemoved(const Object* object) override { this->tell(Hook::Removed, object); }
        void sourceChanged(const Object*) override { this->part("source"); }
        void implChanged(const Object*) override { this->part("engine stream"); }
        void versionChanged(const Object*) override { this->part("version"); }
        void isUsing(const Object*, bool on) override { this->part(flagText("taken", on)); }
        void isAvailable(const Object*, bool on) override { this->part(flagText("available", on)); }
    };
};

using VideoStreamKind = StreamKind<Media::Video, Kestra::Proc::IStreamVideo, FakeVideoRead>;
using AudioStreamKind = StreamKind<Media::Audio, Kestra::Proc::IStreamAudio, FakeAudioRead>;

inline void setMedia(Media::Video& video, int number) {
    video.width = static_cast<std::uint32_t>(number & 15);
    video.frameRateNumerator = static_cast<std::uint32_t>(number >> 4 & 7);
    video.exported = (number & 128) != 0;
}
inline int numberOfMedia(const Media::Video& video) {
    return static_cast<int>(video.width | video.frameRateNumerator << 4) | (video.exported ? 128 : 0);
}
inline void setMedia(Media::Audio& audio, int number) {
    audio.channelLayout = static_cast<std::uint32_t>(number & 15);
    audio.sampleRate = (number >> 4) - 1;
}
inline int numberOfMedia(const Media::Audio& audio) {
    return static_cast<int>(audio.channelLayout) | (audio.sampleRate + 1) << 4;
}

/// Media::Video and Media::Audio, which tell of no parts.
template <class M>
struct MediaKind {
    using Object = M;
    static constexpr int NUMBERS = 256;

    static void set(M& object, int number) { setMedia(object, number); }
    static int numberOf(const M& object) { return numberOfMedia(object); }
    static std::vector<std::string> parts(int, int) { return {}; }

    class View : public Media::View<M>, public Telling<M> {
        using Base = Media::View<M>;

    public:
        using Base::add, Base::own, Base::change, Base::remove, Base::observe, Base::observeAll, Base::observeNew,
            Base::processAddRequests, Base::forget, Base::enumerateAll, Base::objects, Base::object, Base::isObserved,
            Base::isOwned, Base::ownedPtr, Base::ownerPointer;

    protected:
        void mediaAdded(const M* object) override { this->tell(Hook::Added, object); }
        void mediaChanged(const M* object, const M* before, const M* after) override {
            this->tell(Hook::Changed3, object, before, after);
        }
        void mediaChanged(const M* object, const M* before) override { this->tell(Hook::Changed2, object, before); }
        void mediaChanged(const M* object) override { this->tell(Hook::Changed1, object); }
        void mediaRemoved(const M* object) override { this->tell(Hook::Removed, object); }
    };
};

/// FastTrack::Object. Bits of a number, lowest first: progress (2), enabled, active, freezed, folder, complete.
struct FastTrackKind {
    using Object = FastTrack::Object;
    static constexpr int NUMBERS = 128;

    static void set(Object& object, int number) {
        object.progress = number & 3;
        object.enabled = (number & 4) != 0;
        object.setActive((number & 8) != 0).setFreezed((number & 16) != 0);
        object.cacheFolder = (number & 32) != 0 ? QStringLiteral("/cache") : QString();
        object.complete = (number & 64) != 0;
    }
    static int numberOf(const Object& object) {
        return object.progress | (object.enabled ? 4 : 0) | (object.active() ? 8 : 0) | (object.freezed() ? 16 : 0) |
               (object.cacheFolder.isEmpty() ? 0 : 32) | (object.complete ? 64 : 0);
    }
    static std::vector<std::string> parts(int before, int after) {
        std::vector<std::string> told;
        const int differs = before ^ after;
        if ((differs & 3) != 0)
            told.emplace_back("progress");
        if ((differs & 4) != 0)
            told.push_back(flagText("enabled", (after & 4) != 0));
        if ((differs & 8) != 0)
            told.push_back(flagText("active", (after & 8) != 0));
        if ((differs & 16) != 0)
            told.push_back(flagText("freezed", (after & 16) != 0));
        if ((differs & 32) != 0)
            told.emplace_back("folder");
        if ((differs & 64) != 0)
            told.push_back(flagText("complete", (after & 64) != 0));
        return told;
    }

    class View : public FastTrack::View, public Telling<Object> {
        using Base = FastTrack::View;

    public:
        using Base::add, Base::own, Base::change, Base::remove, Base::observe, Base::observeAll, Base::observeNew,
            Base::processAddRequests, Base::forget, Base::enumerateAll, Base::objects, Base::object, Base::isObserved,
            Base::isOwned, Base::ownedPtr, Base::ownerPointer;

    protected:
        void fastTrackAdded(const Object* object) override { tell(Hook::Added, object); }
        void fastTrackChanged(const Object* object, const Object* before, const Object* after) override {
            Base::fastTrackChanged(object, before, after);
            tell(Hook::Changed3, object, before, after);
        }
        void fastTrackChanged(const Object* object, const Object* before) override {
            tell(Hook::Changed2, object, before);
        }
        void fastTrackChanged(const Object* object) override { tell(Hook::Changed1, object); }
        void fastTrackRemoved(const Object* object) override { tell(Hook::Removed, object); }
        void progressChanged(const Object*) override { part("progress"); }
        void isEnabled(const Object*, bool on) override { part(flagText("enabled", on)); }
        void isActive(const Object*, bool on) override { part(flagText("active", on)); }
        void isFreezed(const Object*, bool on) override { part(flagText("freezed", on)); }
        void cacheFolderChanged(const Object*) override { part("folder"); }
        void isComplete(const Object*, bool on) override { part(flagText("complete", on)); }
    };
};

/// Composition::Object. Bits of a number, lowest first: video (2), audio (2), an export's video, an export's audio,
/// duration, version.
struct CompositionKind {
    using Object = Composition::Object;
    static constexpr int NUMBERS = 256;

    static const Media::Video* videos() {
        static const Media::Video all[4];
        return all;
    }
    static const Media::Audio* audios() {
        static const Media::Audio all[4];
        return all;
    }
    static void set(Object& object, int number) {
        const int video = number & 3, audio = number >> 2 & 3;
        object.setVideo(video == 0 ? nullptr : videos() + video).setAudio(audio == 0 ? nullptr : audios() + audio);
        (number & 16) != 0 ? object.add(videos()) : object.remove(videos());
        (number & 32) != 0 ? object.add(audios()) : object.remove(audios());
        object.setDuration(KTime(number >> 6 & 1)).setVersion(static_cast<std::uint64_t>(number >> 7));
    }
    static int numberOf(const Object& object) {
        return (object.video() ? static_cast<int>(object.video() - videos()) : 0) |
               (object.audio() ? static_cast<int>(object.audio() - audios()) : 0) << 2 |
               (object.contains(videos()) ? 16 : 0) | (object.contains(audios()) ? 32 : 0) |
               static_cast<int>(object.duration().count()) << 6 | static_cast<int>(object.version()) << 7;
    }
    static std::vector<std::string> parts(int before, int after) {
        std::vector<std::string> told;
        const int differs = before ^ after;
        if ((differs & 3) != 0)
            told.emplace_back("video");
        if ((differs & 12) != 0)
            told.emplace_back("audio");
        if ((differs & 48) != 0)
            told.emplace_back("exports");
        if ((differs & 192) != 0)
            told.emplace_back("content");
        return told;
    }

    class View : public Composition::View, public Telling<Object> {
        using Base = Composition::CompositionView;

    public:
        using Base::add, Base::own, Base::change, Base::remove, Base::observe, Base::observeAll, Base::observeNew,
            Base::processAddRequests, Base::forget, Base::enumerateAll, Base::objects, Base::object, Base::isObserved,
            Base::isOwned, Base::ownedPtr, Base::ownerPointer;

    protected:
        void compositionAdded(const Object* object) override { tell(Hook::Added, object); }
        void compositionChanged(const Object* object, const Object* before, const Object* after) override {
            Composition::View::compositionChanged(object, before, after);
            tell(Hook::Changed3, object, before, after);
        }
        void compositionChanged(const Object* object, const Object* before) override {
            tell(Hook::Changed2, object, before);
        }
        void compositionChanged(const Object* object) override { tell(Hook::Changed1, object); }
        void compositionRemoved(const Object* object) override { tell(Hook::Removed, object); }
        void videoChanged(const Object*) override { part("video"); }
        void audioChanged(const Object*) override { part("audio"); }
        void exportsChanged(const Object*) override { part("exports"); }
        void contentChanged(const Object*) override { part("content"); }
    };
};

} // namespace Sweep
