// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/FileGrowth.h"

#include <algorithm>
#include <exception>
#include <sys/stat.h>
#include <utility>

namespace ExportCore {
namespace {

constexpr std::chrono::milliseconds AT_ONCE{5}; // as a look at a file takes, unless its folder hangs

qint64 sizeOf(const QByteArray& path) {
    struct stat state = {};
    return ::stat(path.constData(), &state) == 0 ? state.st_size : -1;
}

/// What stands before the last picture that is there does not change any more, and is looked at once.
class Pictures {
public:
    explicit Pictures(SequenceName pictures)
        : pictures(std::move(pictures)) {}

    qint64 size() {
        qint64 last = sizeOf(pictures.pathOf(whole));
        for (qint64 next = last; next >= 0; last = next) {
            next = sizeOf(pictures.pathOf(whole + 1));
            if (next < 0)
                break;
            bytesOfWhole += sizeOf(pictures.pathOf(whole)); // complete, now that another one stands behind it
            ++whole;
        }
        return bytesOfWhole + std::max<qint64>(last, 0);
    }

private:
    const SequenceName pictures;
    qint64 whole = 0;
    qint64 bytesOfWhole = 0;
};

} // namespace

FileGrowth::FileGrowth(Measure measure)
    : measure(std::move(measure))
    , look(std::make_shared<Look>()) {}

FileGrowth::FileGrowth(const QByteArray& path)
    : FileGrowth([path] { return sizeOf(path); }) {}

FileGrowth::FileGrowth(const SequenceName& pictures)
    : FileGrowth([shared = std::make_shared<Pictures>(pictures)] { return shared->size(); }) {}

qint64 FileGrowth::bytes() {
    constexpr qint64 INTERVAL = 500;
    const bool isKnown = look->bytes > 0;
    if (look->ended && (!isKnown || sinceLook.elapsed() >= INTERVAL))
        lookAgain(AT_ONCE);
    return look->bytes;
}

qint64 FileGrowth::bytesNow() {
    constexpr std::chrono::milliseconds SOON{20};
    if (!look->ended)
        thread.JoinOrLeave(std::chrono::steady_clock::now() + SOON);
    if (!look->ended)
        return -1;
    lookAgain(SOON);
    return look->ended ? look->bytes.load() : -1;
}

void FileGrowth::lookAgain(std::chrono::milliseconds patience) {
    constexpr std::chrono::milliseconds JUST_ENDING{100};
    sinceLook.start();
    thread.JoinOrLeave(std::chrono::steady_clock::now() + JUST_ENDING);
    try {
        look->ended = false;
        thread.Start("look-at-output", [look = look, measure = measure] {
            if (const qint64 bytes = measure(); bytes > 0) // an empty file tells that what comes is held back yet
                look->bytes = bytes;
            look->ended = true;
        });
        thread.JoinOrLeave(std::chrono::steady_clock::now() + patience);
    } catch (const std::exception&) { // no thread is to be had, or no memory: an export goes on without that number
        look->ended = true;
    }
}

} // namespace ExportCore
