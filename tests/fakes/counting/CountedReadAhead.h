// SPDX-License-Identifier: GPL-3.0-or-later
// What reads ahead, and what it reads from: tells the counter of failures that no consumer has asked for.
#pragma once

#include "Kestra/Proc/Interrupted.h"
#include "fakes/counting/CountedStreams.h"

namespace Kestra::Fakes {

/// Stands behind the reading ahead. Both ends share the source's address as the stream's name.
template <class Counted>
class ReadAheadSource final : public Counted {
public:
    using Counted::Counted;

    boost::intrusive_ptr<Proc::IData> ReadData() override {
        try {
            return Counted::ReadData();
        } catch (const Proc::Interrupted&) {
            throw; // by whoever resets or ends the reading ahead
        } catch (...) {
            this->counter->ReadAheadFailed(this);
            throw;
        }
    }
};

/// Stands before it. An end in place of a failure counts as told, and shows as a run without a failure.
template <class Counted>
class ReadAheadFront : public Counted {
public:
    template <class Stream>
    ReadAheadFront(const boost::intrusive_ptr<Stream>& inner, const Counter& counter, const std::string& name,
                   const void* source)
        : Counted(inner, counter, name)
        , source(source) {}

    void Reset() override {
        this->counter->ReadAheadReset(source);
        Counted::Reset();
    }

protected:
    template <class Read>
    auto Told(const Read& read) {
        try {
            auto piece = read();
            if (!piece)
                this->counter->ReadAheadTold(source);
            return piece;
        } catch (...) {
            this->counter->ReadAheadTold(source);
            throw;
        }
    }

private:
    const void* const source;
};

class CountedVideoReadAhead final : public ReadAheadFront<CountedVideo<>> {
public:
    using ReadAheadFront::ReadAheadFront;
    boost::intrusive_ptr<Proc::IDataVideo> ReadVideo() override {
        return Told([this] { return CountedVideo<>::ReadVideo(); });
    }
    boost::intrusive_ptr<Proc::IData> ReadData() override {
        return Told([this] { return CountedVideo<>::ReadData(); });
    }
};

class CountedAudioReadAhead final : public ReadAheadFront<CountedAudio> {
public:
    using ReadAheadFront::ReadAheadFront;
    boost::intrusive_ptr<Proc::IDataAudio> ReadAudio() override {
        return Told([this] { return CountedAudio::ReadAudio(); });
    }
    boost::intrusive_ptr<Proc::IData> ReadData() override {
        return Told([this] { return CountedAudio::ReadData(); });
    }
};

} // namespace Kestra::Fakes
