#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Holds the includes of the sources against the rooms as the build declares them.

A room is a folder with its Details; `kestra_room`, `editor_room` and `editorexport_room` in the CMakeLists.txt say which rooms
it stands on. A file may include its own room and those that this one depends on, directly or through others. Since a room is
declared after those that it depends on, no arrow can go up and no circle can close.
"""
import pathlib
import re
import sys

SOURCE_ROOTS = ("multimediacore/src", "editor/src/library", "apps")
SOURCES = (".h", ".cpp")
INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', re.M)
DECLARATION = re.compile(r"^\s*(kestra_room|editor_room|editorexport_room)\(([^)]*)\)", re.M)
KEYWORDS = {"LIBRARY", "ROOT", "QT", "SOURCES", "OWN", "DEPENDS", "LIBRARIES"}


class Room:
    def __init__(self, arguments):
        self.folder, lists, current = arguments[0], {}, None
        for word in arguments[1:]:
            current = word if word in KEYWORDS else current
            lists.setdefault(current, [])
            if word not in KEYWORDS:
                lists[current].append(word)
        self.depends = lists.get("DEPENDS", [])
        self.own = lists.get("OWN", [])
        self.known = set()

    def owns(self, header):
        return self.own == ["ALL"] or header in self.own


def read_rooms(text):
    """The rooms by folder, each with all that it knows, and what is wrong with their declarations."""
    rooms, faults = {}, []
    for function, arguments in DECLARATION.findall(text):
        room = Room(re.sub(r"#[^\n]*", "", arguments).split())
        if "${" in room.folder:
            continue  # the functions' own call of one another
        if function == "kestra_room":
            room.folder = "Kestra/" + room.folder
            room.depends = ["Kestra/" + folder for folder in room.depends]
        room.known = {room.folder}
        for folder in room.depends:
            if folder not in rooms:
                faults.append(f"{room.folder} depends on {folder}, which is not declared before it")
            else:
                room.known |= rooms[folder].known
        rooms[room.folder] = room
    return rooms, faults


def room_of(path, rooms):
    """The room of a file or include given relative to its source root ('Kestra/Proc/IEncoder.h'), or None."""
    folder = path.rpartition("/")[0]
    return rooms.get(folder.removesuffix("/Details"))


def arrow_faults(path, includes, rooms):
    own = room_of(path, rooms)
    if not own:
        return [f"{path}: its folder is no room"]
    faults = []
    for include in includes:
        target = room_of(include, rooms)
        if target and target.folder not in own.known:
            faults.append(f"{path}: {include}: {own.folder} must not know {target.folder}")
        header = path.rpartition("/")[2]
        if target and path.endswith(".h") and not own.owns(header) and target.owns(include.rpartition("/")[2]):
            faults.append(f"{path}: {include}: a header that is installed must not need one that is not")
    return faults


def rule_faults(path, include):
    """What other rules than those of the rooms say of one include."""
    in_engine = path.startswith("Kestra/") and not path.startswith("Kestra/Util/")
    if re.match(r"libav|libsw|libpostproc|webp/", include) and not path.startswith("Kestra/FF/"):
        yield f"{path}: {include} belongs to Kestra/FF alone"
    if re.match(r"Q[A-Z]|Qt[A-Z]", include) and in_engine:
        yield f"{path}: {include}: no Qt in the engine outside Util"
    if include.startswith("glog/") and not path.startswith("Export/Transcoder"):
        yield f"{path}: {include} belongs to the transcoder alone"
    if re.match(r"QtWidgets|Q(Widget|Dialog|MainWindow|Application)$", include) and not path.startswith("dialog/"):
        yield f"{path}: {include}: no widgets in a library"
    if include in ("thread", "mutex", "shared_mutex", "condition_variable", "QThread", "QMutex") and \
            re.match(r"(Export|Branding|Message|Stream|FastTrack)/", path):
        yield f"{path}: {include}: no locks or threads in the module"


def faults_of(path, text, rooms):
    includes = INCLUDE.findall(text)
    return arrow_faults(path, includes, rooms) + [fault for include in includes for fault in rule_faults(path, include)]


def check(top):
    lists = sorted(path for root in ("multimediacore", "editor", "apps") for path in (top / root).rglob("CMakeLists.txt"))
    # In the order of dependency, as the list at the top has it.
    order = ["multimediacore", "editor", "apps/ExportCore", "apps"]
    lists.sort(key=lambda path: next(i for i, start in enumerate(order) if path.relative_to(top).as_posix().startswith(start)))
    rooms, faults = read_rooms("\n".join(path.read_text() for path in lists))
    count = 0
    for root in SOURCE_ROOTS:
        for file in sorted((top / root).rglob("*")):
            if file.suffix in SOURCES:
                count += 1
                faults += faults_of(file.relative_to(top / root).as_posix(), file.read_text(), rooms)
    if count == 0 or not rooms:
        faults.append(f"{top}: no sources or no rooms found")
    return len(rooms), count, faults


TOY_ROOMS = """
kestra_room(Base)
kestra_room(Proc DEPENDS Base OWN Hidden.h)
kestra_room(FF/Av DEPENDS Proc OWN ALL)
kestra_room(Util LIBRARY KestraQt QT DEPENDS Proc)
editor_room(Message LIBRARY EditorModel)
editor_room(Media LIBRARY EditorModel DEPENDS Message Kestra/Util)
editor_room(Export LIBRARY EditorExport DEPENDS Media)
editor_room(EditorProject LIBRARY EditorProject DEPENDS Export)
editorexport_room(ExportCore LIBRARY ExportCore DEPENDS EditorProject)
"""
BAD = {
    "Kestra/Proc/A.cpp": "#include <libavcodec/avcodec.h>", "Kestra/Base/B.h": "#include <QString>",
    "Export/PresetProvider.cpp": "#include <glog/logging.h>", "Export/C.cpp": '#include "EditorProject/EditorProject.h"',
    "Kestra/Base/D.h": '#include "Kestra/Proc/IStream.h"', "Message/View.h": "#include <mutex>",
    "ExportCore/E.cpp": "#include <QWidget>", "Media/F.cpp": '#include "Export/Transcoder.h"',
    "Kestra/Proc/G.cpp": '#include "Kestra/FF/Av/Error.h"', "Media/H.cpp": '#include "Kestra/FF/Av/Error.h"',
    "Kestra/Proc/I.h": '#include "Kestra/Proc/Hidden.h"', "Kestra/FF/J.cpp": "#include <vector>",
    "Message/Details/K.h": '#include "Media/Video.h"', "ExportCore/L.cpp": "#include <webp/decode.h>",
}
GOOD = {
    "Kestra/FF/Av/A.cpp": "#include <libavcodec/avcodec.h>", "Export/Transcoder.cpp": "#include <glog/logging.h>",
    "EditorProject/B.cpp": '#include "Export/Transcoder.h"', "Kestra/Util/C.h": "#include <QObject>",
    "Kestra/Proc/D.cpp": '#include "Kestra/Proc/Hidden.h"', "Kestra/Proc/Hidden.h": '#include "Kestra/Base/Time.h"',
    "ExportCore/E.h": '#include "Kestra/Proc/IStream.h"', "Message/View.h": '#include "Message/Details/Chain.h"',
}


def self_test():
    rooms, wrong = read_rooms(TOY_ROOMS)
    missed = [path for path, text in BAD.items() if not faults_of(path, text, rooms)]
    wrong += [path for path, text in GOOD.items() if faults_of(path, text, rooms)]
    if not read_rooms("kestra_room(Proc DEPENDS Base)\nkestra_room(Base)")[1]:
        missed.append("a room that is declared before what it depends on")
    return missed, wrong


def main():
    if sys.argv[1:] == ["--self-test"]:
        missed, wrong = self_test()
        print(f"not found: {missed}; found without cause: {wrong}")
        return 1 if missed or wrong else 0
    rooms, count, faults = check(pathlib.Path(sys.argv[1]))
    print("\n".join(faults) or f"{count} files in {rooms} rooms, every arrow goes down")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
