// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/kestra/FakeData.h"
#include "Kestra/Base/Time.h"
#include <utility>

namespace Kestra::Fakes {

FakeBlock::FakeBlock(std::int64_t time, std::int64_t samples, int rate)
    : time(time)
    , duration(SamplesToTime(samples, rate))
    , samples(samples)
    , rate(rate) {}

boost::intrusive_ptr<Proc::IDataAudio> FakeBlock::Slice(std::int64_t offset, std::int64_t count) const {
    return new FakeBlock(time + SamplesToTime(offset, rate), count, rate);
}

FakePacket::FakePacket(std::int64_t time, std::int64_t duration, std::size_t size, std::shared_ptr<void> lifeToken)
    : time(time)
    , decodeTime(time)
    , duration(duration)
    , bytes(std::make_shared<const std::vector<std::uint8_t>>(size))
    , lifeToken(std::move(lifeToken)) {}

void FakePacket::SetTrim(std::int64_t start, std::int64_t end) {
    trimStart = start;
    trimEnd = end;
}

boost::intrusive_ptr<Proc::IDataRaw> FakePacket::Share() const {
    boost::intrusive_ptr<FakePacket> copy(new FakePacket(time, duration, 0, lifeToken));
    copy->bytes = bytes;
    copy->decodeTime = decodeTime;
    copy->SetTrim(trimStart, trimEnd);
    return copy;
}

} // namespace Kestra::Fakes
