// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::OneTrackMuxer: what muxers of this engine's own have in common.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Base/SourcePlace.h"
#include "Kestra/Conf/Container.h"
#include "Kestra/Conf/IFormatFile.h"
#include "Kestra/FF/Av/OptionList.h"
#include "Kestra/FF/Data/CodecParametersFF.h"
#include "Kestra/Proc/IMuxer.h"
#include <string>

namespace Kestra::FF {

/// Takes one track, of one of the container's codecs, and calls in their order; everything else is refused by a
/// ProcException.
class OneTrackMuxer : public Proc::IMuxer, public RefCountImpl {
public:
    int AddStream(const boost::intrusive_ptr<Conf::IFormatCodec>& format) final;
    void Open() final;
    void Write(int index, const boost::intrusive_ptr<Proc::IDataRaw>& packet) final;
    void Finish() final;
    void Abort() noexcept override { state = State::Done; }

protected:
    /// `container` outlives the muxer.
    explicit OneTrackMuxer(const Conf::Container& container)
        : container(container) {}

    /// What the description orders by name.
    static OptionList OptionsOf(const Conf::IFormatFile& format);
    /// The id, in quotes.
    std::string Name() const;

    /// The work behind the calls, each of which is legal then.
    virtual void Take(const CodecParametersFF&) {}
    virtual void Begin() {}
    virtual void Put(const Proc::IDataRaw& packet) = 0;
    virtual void Complete() {}

private:
    enum class State { Adding, Open, Done };

    void RequireState(State wanted, const char* operation, SourcePlace place = SourcePlace::Here()) const;

    const Conf::Container& container;
    bool hasTrack = false;
    State state = State::Adding;
};

} // namespace Kestra::FF
