#include "ExportCore/FileGrowth.h"

#include <exception>
#include <sys/stat.h>

namespace ExportCore {

FileGrowth::FileGrowth(QByteArray path)
    : path(std::move(path))
    , look(std::make_shared<Look>()) {}

qint64 FileGrowth::bytes() {
    constexpr qint64 INTERVAL = 500;
    constexpr std::chrono::milliseconds JUST_ENDING{100};
    if (!look->ended || (sinceLook.isValid() && sinceLook.elapsed() < INTERVAL))
        return look->bytes;
    sinceLook.start();
    thread.JoinOrLeave(std::chrono::steady_clock::now() + JUST_ENDING);
    try {
        look->ended = false;
        thread.Start("look-at-output", [look = look, path = path] {
            struct stat state = {};
            if (::stat(path.constData(), &state) == 0)
                look->bytes = state.st_size;
            look->ended = true;
        });
    } catch (const std::exception&) { // no thread is to be had, or no memory: an export goes on without that number
        look->ended = true;
    }
    return look->bytes;
}

} // namespace ExportCore
