// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::StreamBase: what streams of sound and of pictures answer alike.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Proc/Filters/NotImplemented.h"
#include "Kestra/Proc/IStreamAudio.h"
#include "Kestra/Proc/IStreamVideo.h"
#include <type_traits>

namespace Kestra::Proc {

/// A seekable stream that is ready from the start, delivers what it has whatever the consumer prefers, and has no
/// settings: Initialize and GetSettings throw FilterException. A stream overrides what is otherwise with it.
/// Stream is IStreamAudio, IStreamVideo or derived from one of them.
template <class Stream>
class KESTRA_EXPORT StreamBase : public Stream, public RefCountImpl {
public:
    void Initialize(const Core::Property&) override { KESTRA_NOT_IMPLEMENTED(); }
    Core::Property GetSettings() const override { KESTRA_NOT_IMPLEMENTED(); }
    boost::intrusive_ptr<IData> ReadData() override {
        if constexpr (std::is_base_of_v<IStreamVideo, Stream>)
            return this->ReadVideo();
        else
            return this->ReadAudio();
    }
    bool IsSeekable() const override { return true; }
    void GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const override {
        this->GetFormatCodecBase(format);
    }
    void PreferFormat(const Conf::IFormatCodec&) override {}
    void Prepare() override {}
};

} // namespace Kestra::Proc
