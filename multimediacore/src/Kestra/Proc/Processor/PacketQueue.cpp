#include "Kestra/Proc/Processor/PacketQueue.h"

namespace Kestra::Proc {

PacketQueue::PacketQueue(const Limits& limits)
    : limits(limits) {}

bool PacketQueue::Push(const boost::intrusive_ptr<IDataRaw>& packet) {
    std::unique_lock<std::mutex> lock(mutex);
    roomOrCancelled.wait(lock, [&] { return cancelled || HasRoomFor(*packet); });
    if (cancelled) {
        return false;
    }
    packets.push_back(packet);
    bytes += packet->GetByteSize();
    packetOrEnd.notify_one();
    return true;
}

bool PacketQueue::HasRoomFor(const IDataRaw& packet) const {
    if (packets.empty()) {
        return true;
    }
    return bytes + packet.GetByteSize() <= limits.bytes &&
           packet.GetDecodeTime() - packets.front()->GetDecodeTime() <= limits.time;
}

void PacketQueue::End() {
    const std::lock_guard<std::mutex> lock(mutex);
    ended = true;
    packetOrEnd.notify_one();
}

boost::intrusive_ptr<IDataRaw> PacketQueue::WaitFront() {
    std::unique_lock<std::mutex> lock(mutex);
    packetOrEnd.wait(lock, [this] { return !packets.empty() || ended || cancelled; });
    return packets.empty() ? nullptr : packets.front();
}

void PacketQueue::PopFront() {
    boost::intrusive_ptr<IDataRaw> taken;
    const std::lock_guard<std::mutex> lock(mutex);
    if (packets.empty()) {
        return;
    }
    taken.swap(packets.front());
    packets.pop_front();
    bytes -= taken->GetByteSize();
    roomOrCancelled.notify_one();
}

void PacketQueue::Cancel() {
    const std::lock_guard<std::mutex> lock(mutex);
    cancelled = true;
    roomOrCancelled.notify_all();
    packetOrEnd.notify_all();
}

void PacketQueue::Clear() {
    std::deque<boost::intrusive_ptr<IDataRaw>> dropped;
    const std::lock_guard<std::mutex> lock(mutex);
    dropped.swap(packets);
    bytes = 0;
    roomOrCancelled.notify_all();
}

} // namespace Kestra::Proc
