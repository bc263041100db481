// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Proc/IData.h"

namespace Kestra::Proc {

/// One encoded packet. GetTime is its presentation time; it may be negative for what a decoder has to discard.
class KESTRA_EXPORT IDataRaw : public IData {
public:
    ~IDataRaw() override;
    virtual std::int64_t GetDecodeTime() const = 0;
    virtual void SetDecodeTime(std::int64_t time) = 0;
    virtual bool IsKeyframe() const = 0;
    virtual const std::uint8_t* GetBytes() const = 0;
    virtual std::size_t GetSize() const = 0;
    /// Engine time to discard from the decoded start and end of this packet; zero unless a cut lies inside it.
    virtual std::int64_t GetTrimStart() const = 0;
    virtual std::int64_t GetTrimEnd() const = 0;
    virtual void SetTrim(std::int64_t start, std::int64_t end) = 0;
    /// A new object on the same bytes, with times and trims of its own.
    virtual boost::intrusive_ptr<IDataRaw> Share() const = 0;
};

} // namespace Kestra::Proc
