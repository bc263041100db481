#!/usr/bin/env python3
"""Reads the includes of the sources and fails on an arrow between rooms that does not go down."""
import pathlib
import re
import sys

# Lowest first: a room may include itself and every room before it.
ORDER = ["Kestra", "KestraQt", "EditorModel", "EditorPreset", "EditorExport", "EditorProject", "ExportCore", "app"]
EDITOR = {
    "KTime": "EditorModel", "Types": "EditorModel", "PubSub": "EditorModel", "Media": "EditorModel",
    "Composition": "EditorModel", "FileSystem": "EditorPreset", "EditorSettings": "EditorPreset",
    "EditorPreset": "EditorPreset", "Branding": "EditorExport", "Export": "EditorExport", "EditorProject": "EditorProject",
    # The view templates stand beside the model: its composition and media views are made of them.
    "Message": "EditorModel", "Stream": "EditorModel", "FastTrack": "EditorModel",
}
# Within the engine the folders that hold values and interfaces know nothing of the implementation.
ENGINE_FORBIDDEN = {"Base": {"Core", "Conf", "ClientAPI", "Proc", "FF", "Util"}, "Conf": {"Proc", "FF", "Util"},
                    "ClientAPI": {"Proc", "FF", "Util"}}
INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', re.M)
SOURCES = (".h", ".cpp")


def room_of(path):
    """The room of a file given relative to its source root ('Kestra/Proc/IEncoder.h'), or None for foreign headers."""
    parts = path.split("/")
    if parts[0] == "Kestra" and len(parts) > 2:
        if parts[1] == "Util":
            return "KestraQt"
        return "EditorExport" if "FiltersSpecial" in parts else "Kestra"
    if len(parts) > 1 and parts[0] in EDITOR:
        return EDITOR[parts[0]]
    if len(parts) > 1 and parts[0] == "ExportCore":
        return "ExportCore"
    if len(parts) > 1 and parts[0] in ("cli", "dialog"):
        return "app"
    return None


def faults_of(path, text):
    """What is wrong with the includes of one file, `path` relative to its source root."""
    room = room_of(path)
    faults = []
    in_ff = path.startswith("Kestra/FF/")
    for include in INCLUDE.findall(text):
        if re.match(r"libav|libsw|libpostproc", include) and not in_ff:
            faults.append(f"{path}: {include} belongs to Kestra/FF alone")
        if re.match(r"Q[A-Z]|Qt[A-Z]", include) and room == "Kestra":
            faults.append(f"{path}: {include}: no Qt in the engine outside Util")
        if include.startswith("glog/") and not path.startswith("Export/Transcoder"):
            faults.append(f"{path}: {include} belongs to the transcoder alone")
        if re.match(r"QtWidgets|Q(Widget|Dialog|MainWindow|Application)$", include) and not path.startswith("dialog/"):
            faults.append(f"{path}: {include}: no widgets in a library")
        if include in ("thread", "mutex", "shared_mutex", "condition_variable", "QThread", "QMutex") and \
                re.match(r"(Export|Branding|Message|Stream|FastTrack)/", path):
            faults.append(f"{path}: {include}: no locks or threads in the module")
        target = room_of(include)
        if target and room and ORDER.index(target) > ORDER.index(room):
            faults.append(f"{path}: {include}: {room} must not know {target}")
        own, other = path.split("/"), include.split("/")
        if own[0] == other[0] == "Kestra" and len(other) > 2 and other[1] in ENGINE_FORBIDDEN.get(own[1], ()):
            faults.append(f"{path}: {include}: Kestra/{own[1]} must not know Kestra/{other[1]}")
    return faults


def check(top):
    faults = []
    count = 0
    for root in ("multimediacore/src", "editor/src/library", "apps"):
        for file in sorted((top / root).rglob("*")):
            if file.suffix in SOURCES:
                count += 1
                faults += faults_of(file.relative_to(top / root).as_posix(), file.read_text())
    if count == 0:
        faults.append(f"{top}: no sources found")
    return count, faults


def self_test():
    bad = {
        "Kestra/Proc/A.cpp": '#include <libavcodec/avcodec.h>', "Kestra/Core/B.h": '#include <QString>',
        "Export/PresetProvider.cpp": '#include <glog/logging.h>', "Export/C.cpp": '#include "EditorProject/EditorProject.h"',
        "Kestra/Base/D.h": '#include "Kestra/Proc/IStream.h"', "Message/View.h": '#include <mutex>',
        "ExportCore/E.cpp": '#include <QWidget>', "Media/F.cpp": '#include "Export/Transcoder.h"',
    }
    good = {"Kestra/FF/A.cpp": '#include <libavcodec/avcodec.h>', "Export/Transcoder.cpp": '#include <glog/logging.h>',
            "EditorProject/B.cpp": '#include "Export/Transcoder.h"', "Kestra/Util/C.h": '#include <QObject>'}
    missed = [path for path, text in bad.items() if not faults_of(path, text)]
    wrong = [path for path, text in good.items() if faults_of(path, text)]
    return missed, wrong


def main():
    if sys.argv[1:] == ["--self-test"]:
        missed, wrong = self_test()
        print(f"not found: {missed}; found without cause: {wrong}")
        return 1 if missed or wrong else 0
    count, faults = check(pathlib.Path(sys.argv[1]))
    print("\n".join(faults) or f"{count} files, every arrow goes down")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
