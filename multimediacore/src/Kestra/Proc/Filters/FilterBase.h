// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::FilterBase: what filters over sound and over pictures have in common.
#pragma once

#include "Kestra/Base/Exception.h"
#include "Kestra/Proc/Filters/StreamBase.h"
#include <stdexcept>
#include <string>
#include <utility>

namespace Kestra::Proc {

/// Forwards the operations of IStream to its source, which it holds; a filter overrides what it changes. Stream is
/// IStreamAudio or IStreamVideo. Filters take their settings when they are made.
template <class Stream>
class KESTRA_EXPORT FilterBase : public StreamBase<Stream> {
public:
    /// `name` is for messages. Throws std::invalid_argument for a null source.
    FilterBase(boost::intrusive_ptr<Stream> source, std::string name)
        : source(std::move(source))
        , name(std::move(name)) {
        if (!this->source)
            KESTRA_THROW(std::invalid_argument("The filter \"" + this->name + "\" was given no source"));
    }

    std::int64_t GetDuration() const override { return source->GetDuration(); }
    std::int64_t GetPosition() const override { return source->GetPosition(); }
    void Seek(std::int64_t time, SeekMode mode) override { source->Seek(time, mode); }
    void Interrupt() override { source->Interrupt(); }
    bool IsSeekable() const override { return source->IsSeekable(); }
    std::string Describe() const override { return name + " of " + source->Describe(); }
    void PreferFormat(const Conf::IFormatCodec& format) override { source->PreferFormat(format); }
    void Prepare() override { source->Prepare(); }
    void Reset() override { source->Reset(); }

protected:
    const std::string& GetName() const { return name; }

    const boost::intrusive_ptr<Stream> source;

private:
    std::string name;
};

} // namespace Kestra::Proc
