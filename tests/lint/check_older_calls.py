#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Holds the sources against what later versions of FFmpeg's libraries took away, or mean to: such names stand in Kestra/FF/Av
alone, so that one folder says what a move to another version costs."""
import pathlib
import re
import sys

ROOTS = ("multimediacore/src", "editor/src/library", "apps")
HOME = "Kestra/FF/Av/"
# Members, functions and constants of 5.1 that 6, 7 or 8 no longer have, or have marked.
NAMES = re.compile(r"""\b(?:
    interlaced_frame | top_field_first | key_frame | reordered_opaque | pkt_duration | pkt_pos | pkt_size
    | coded_picture_number | display_picture_number | frame_number | ticks_per_frame | thread_safe_callbacks
    | supported_samplerates | supported_framerates | sample_fmts | pix_fmts | channel_layouts
    | av_stream_(?:get|new|add)_side_data | avcodec_close | av_init_packet | av_fopen_utf8 | av_mallocz_array
    | swr_alloc_set_opts | av_get_default_channel_layout | av_get_channel_layout\w* | av_get_channel_\w+
    | avcodec_get_(?:frame|subtitle_rect)_class | av_opt_set_int_list | FF_PROFILE_\w+ | FF_API_\w+
    )\b | (?:->|\.)channel_layout\b(?!\s*\() """, re.X)
LITERALS = re.compile(r'"(?:[^"\\\n]|\\.)*"|//[^\n]*|/\*.*?\*/|^\s*#\s*include[^\n]*', re.S | re.M)


def faults_of(path, text):
    if path.startswith(HOME):
        return []
    # Strings and comments may name them: they go, their lines stay.
    code = LITERALS.sub(lambda found: "\n" * found.group().count("\n"), text)
    return [f"{path}:{number}: {found.group().strip()} belongs to {HOME[:-1]} alone"
            for number, line in enumerate(code.splitlines(), 1) for found in NAMES.finditer(line)]


def self_test():
    assert faults_of("Kestra/FF/Data/A.cpp", "int a;\nif (frame->key_frame)\n") == [
        "Kestra/FF/Data/A.cpp:2: key_frame belongs to Kestra/FF/Av alone"]
    for bad in ("x = av_stream_get_side_data(&s, t, &n);", "codec.pix_fmts", "frame->channel_layout = 3;",
                "swr_alloc_set_opts(0)", "#if FF_API_INIT_PACKET"):
        assert faults_of("Kestra/FF/Data/A.cpp", bad), bad
    for good in ('"aformat=sample_fmts=fltp"', "// key_frame", "swr_alloc_set_opts2(&c)", "frame.ch_layout", "my_key_frames",
                 "#include <libavutil/channel_layout.h>", "/* pkt_pos\n */"):
        assert not faults_of("Kestra/FF/Data/A.cpp", good), good
    assert not faults_of("Kestra/FF/Av/A.h", "frame.key_frame")


def main():
    if sys.argv[1:] == ["--self-test"]:
        self_test()
        return 0
    top = pathlib.Path(sys.argv[1])
    files = [(root, path) for root in ROOTS for path in sorted((top / root).rglob("*")) if path.suffix in (".h", ".cpp")]
    faults = [fault for root, path in files
              for fault in faults_of(path.relative_to(top / root).as_posix(), path.read_text())]
    if not files:
        faults = [f"{top}: no sources found"]
    print("\n".join(faults), end="\n" if faults else "")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
