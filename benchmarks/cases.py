# SPDX-License-Identifier: GPL-3.0-or-later
"""What is measured: each case with the preset of editor-export, what ffmpeg is told for the same, and its goals."""
import dataclasses
import os
import pathlib
from typing import NamedTuple, Optional

import media
import timelines

TOP = pathlib.Path(__file__).resolve().parent.parent
PROGRAM = TOP / "build/release/bin/editor-export"
WORK = TOP / "build/compare"
REAL = TOP.parent / "shared/media"

FFMPEG = ["ffmpeg", "-nostdin", "-loglevel", "error", "-y"]
AAC = {"codec": "aac", "bitrate": 192000, "sampleRate": 48000, "channelLayout": "stereo"}
AAC_ARGUMENTS = ["-c:a", "aac", "-b:a", "192000", "-ar", "48000", "-ac", "2"]
# Quickly encoded, for long sound that is there for its packets alone.
AC3 = dict(AAC, codec="ac3")
AC3_ARGUMENTS = ["-c:a", "ac3", *AAC_ARGUMENTS[2:]]
OPUS = dict(AAC, codec="opus", bitrate=160000)
OPUS_ARGUMENTS = ["-c:a", "libopus", "-b:a", "160000", *AAC_ARGUMENTS[4:]]
PCM = {"codec": "pcm_s16le", "sampleRate": 48000, "channelLayout": "stereo"}
MP4 = {"id": "mp4", "options": {"movflags": "+faststart"}}
FASTSTART = ["-movflags", "+faststart"]
HD, SMALL_HD, SD = (1920, 1080), (1280, 720), (864, 486)  # all of one shape


class Goals(NamedTuple):
    """Highest ratios to ffmpeg's; None where there is no goal."""
    wall: Optional[float] = None
    memory: Optional[float] = 1.1


PEER_GOALS = Goals(wall=0.85, memory=None)
NO_GOALS = Goals(memory=None)
TWO_PASSES_MEMORY = 0.7


class X264(NamedTuple):
    """What other programs are told of the encoder; by quality where there is no bitrate, else in two passes."""
    preset: str
    quality: int = 20
    bitrate: int = 0


@dataclasses.dataclass
class Case:
    """One source, exported by editor-export and by ffmpeg, whose `arguments` are those of the pictures' encoder."""
    name: str
    goals: Goals
    preset: dict
    arguments: list
    source: str
    size: tuple = HD  # of the output's frame
    cut: Optional[tuple] = None
    sound: list = dataclasses.field(default_factory=lambda: AAC_ARGUMENTS)
    muxer: list = dataclasses.field(default_factory=lambda: FASTSTART)
    x264: Optional[X264] = None
    only_named: bool = False  # it takes minutes
    limited: bool = True  # what its encoder and decoder take alone is measured, too
    bounds: Optional[tuple] = None  # of open files and of MiB

    @property
    def two_passes(self):
        return self.preset.get("video", {}).get("twoPass", False)

    @property
    def suffix(self):
        return "." + self.preset["container"]["id"]

    def own_command(self, output):
        cut = ["--in", str(self.cut[0]), "--out", str(self.cut[1])] if self.cut else []
        return [str(PROGRAM), "render", str(WORK / self.source), "-p", self.name, "-o", str(output), "--overwrite", "--progress",
                "none", *cut]

    def input(self):
        cut = ["-ss", str(self.cut[0]), "-t", str(self.cut[1] - self.cut[0])] if self.cut else []
        return [*cut, "-i", str(WORK / self.source)]

    def scale(self):
        return "null" if self.size == HD else f"scale={self.size[0]}:{self.size[1]}:flags=bicubic:{timelines.CHROMA}"

    def reference(self):
        """What the outputs ought to look like: ffmpeg's inputs, and a graph that ends in [v]."""
        return self.input(), f"[0:v]{self.scale()}[v]"

    def ffmpeg_commands(self, output):
        """One for each pass; the first goes over the pictures alone."""
        scaled = [] if self.scale() == "null" else ["-vf", self.scale()]
        return self.encoding([*FFMPEG, *self.input(), *scaled], [*self.sound, *self.muxer, str(output)])

    def encoding(self, beginning, end):
        command = [*beginning, *self.arguments]
        if not self.two_passes:
            return [[*command, *end]]
        log = ["-passlogfile", str(WORK / "passes")]
        return [[*command, "-pass", "1", *log, "-an", "-f", "null", "-"], [*command, "-pass", "2", *log, *end]]

    # What the codecs take alone. Raw frames are read from a file, which counts.

    def decoding(self):
        passes = 2 if self.two_passes else 1
        return [[*FFMPEG, *self.input(), "-map", "0:v", "-f", "null", "-"]] * passes

    def raw(self, output):
        formats = self.arguments[self.arguments.index("-pix_fmt") + 1]
        return [*FFMPEG, *self.input(), "-vf", self.scale(), "-pix_fmt", formats, "-c:v", "rawvideo", "-an", "-f", "nut", str(output)]

    def encoding_alone(self, raw):
        return self.encoding([*FFMPEG, "-i", str(raw)], ["-f", "null", "-"])


class SoundCase(Case):
    """Sound alone; `arguments` are those of its encoder."""

    def __init__(self, name, goals, container, audio, arguments, muxer=()):
        super().__init__(name, goals, {"container": container, "audio": audio}, list(arguments), "sound.wav", muxer=list(muxer))

    def ffmpeg_commands(self, output):
        return [[*FFMPEG, *self.input(), *self.arguments, *self.muxer, str(output)]]

    def decoding(self):
        return [[*FFMPEG, *self.input(), "-f", "null", "-"]]

    def raw(self, output):
        return [*FFMPEG, *self.input(), "-c:a", "copy", "-f", "nut", str(output)]


class TimelineCase(Case):
    """One of timelines.py, whose timeline is NAME.otio; `arguments` begin behind ffmpeg's inputs. Those of `melt` follow its
    consumer's output."""

    def __init__(self, name, goals, preset, arguments, timeline, bounds=None, melt=(), only_named=False):
        super().__init__(name, goals, preset, arguments, timeline + ".otio", only_named=only_named, bounds=bounds)
        self.timeline, self.melt = timeline, melt

    def reference(self):
        return timelines.pictures(WORK, self.timeline, exactly=True)

    def ffmpeg_commands(self, output):
        return [[*FFMPEG, *timelines.inputs(WORK, self.timeline), *self.arguments, *self.sound, *self.muxer, str(output)]]


class StartCase(NamedTuple):
    """How long the program takes to say something: seconds of a processor, of the program itself."""
    name: str
    arguments: list
    goal: float
    only_named: bool = False


def video(codec, size=HD, **settings):
    width, height = size
    return {"codec": codec, "width": width, "height": height, "maxWidth": width, "maxHeight": height, "frameRate": "source",
            "bitrateMode": "quality", **settings}


def h264(preset, size=HD):
    return (video("h264", size, quality=20, profile="high", pixelFormat="yuv420p", gopSeconds=5, options={"preset": preset}),
            ["-c:v", "libx264", "-preset", preset, "-crf", "20", "-profile:v", "high", "-g", "150", "-pix_fmt", "yuv420p"])


def one_pass(name, goal, preset, size=HD, **more):
    settings, arguments = h264(preset, size)
    return Case(name, Goals(goal), {"container": MP4, "video": settings, "audio": AAC}, arguments, more.pop("source", "short.mp4"),
                size, x264=X264(preset), **more)


def two_passes(name, goal, size, bitrate, source="natural.mp4", only_named=False, **more):
    """Bound by the peak that the preset's bitrate mode allows."""
    settings = video("h264", size, bitrateMode="variable", bitrate=bitrate, twoPass=True, profile="high", pixelFormat="yuv420p",
                     gopSeconds=5, options={"preset": "medium"}, **more)
    arguments = ["-c:v", "libx264", "-preset", "medium", "-b:v", str(bitrate), "-maxrate", str(bitrate * 3 // 2), "-bufsize",
                 str(bitrate * 3), "-profile:v", "high", "-g", "150", "-pix_fmt", "yuv420p"]
    return Case(name, Goals(goal, TWO_PASSES_MEMORY), {"container": MP4, "video": settings, "audio": AAC}, arguments, source, size,
                x264=X264("medium", bitrate=bitrate), only_named=only_named)


def other_codecs():
    mp4 = lambda settings: {"container": MP4, "video": settings, "audio": AAC}
    part = (0, 3)
    vp9 = video("vp9", SMALL_HD, quality=32, pixelFormat="yuv420p", gopSeconds=5)
    hevc = video("hevc", SMALL_HD, quality=24, pixelFormat="yuv420p", gopSeconds=5, options={"preset": "medium"})
    av1 = video("av1", SMALL_HD, quality=35, pixelFormat="yuv420p", gopSeconds=5)
    prores = video("prores", profile="standard", pixelFormat="yuv422p10")
    mpeg4 = dict(pixelFormat="yuv420p", gopSeconds=0.5)
    return [
        Case("mpeg4", Goals(0.92), mp4(video("mpeg4", quality=4, **mpeg4)),
             ["-c:v", "mpeg4", "-q:v", "4", "-g", "15", "-pix_fmt", "yuv420p"], "short.mp4"),
        Case("mpeg4-2pass", Goals(0.95), mp4(video("mpeg4", bitrateMode="variable", bitrate=6000000, twoPass=True, **mpeg4)),
             ["-c:v", "mpeg4", "-b:v", "6000000", "-g", "15", "-pix_fmt", "yuv420p"], "short.mp4"),
        Case("prores", Goals(0.92), {"container": {"id": "mov"}, "video": prores, "audio": PCM},
             ["-c:v", "prores_ks", "-profile:v", "standard", "-pix_fmt", "yuv422p10"], "short.mp4", cut=part,
             sound=["-c:a", "pcm_s16le"], muxer=[]),
        Case("vp9-720p", Goals(0.8), {"container": {"id": "webm"}, "video": vp9, "audio": OPUS},
             ["-c:v", "libvpx-vp9", "-crf", "32", "-b:v", "0", "-cpu-used", "2", "-g", "150", "-pix_fmt", "yuv420p"], "natural.mp4",
             SMALL_HD, part, OPUS_ARGUMENTS, []),
        Case("hevc-720p", Goals(), mp4(hevc), ["-c:v", "libx265", "-preset", "medium", "-crf", "24", "-g", "150", "-pix_fmt", "yuv420p",
                                               "-x265-params", "log-level=none"], "natural.mp4", SMALL_HD, part),
        Case("av1-720p", Goals(), mp4(av1), ["-c:v", "libsvtav1", "-crf", "35", "-g", "150", "-pix_fmt", "yuv420p"], "natural.mp4",
             SMALL_HD, part),
    ]


def sound_alone():
    plain = {"codec": "flac", "sampleRate": 0, "channelLayout": "source"}
    return [
        SoundCase("aac", Goals(0.55), dict(MP4, id="m4a"), AAC, AAC_ARGUMENTS, FASTSTART),
        SoundCase("flac", Goals(0.6), {"id": "flac"}, plain, ["-c:a", "flac"]),
        SoundCase("mp3", Goals(0.95), {"id": "mp3"}, dict(AAC, codec="mp3"), ["-c:a", "libmp3lame", "-b:a", "192000"]),
    ]


def cut_together():
    tiny, tiny_arguments = h264("ultrafast", (160, 120))
    veryfast, veryfast_arguments = h264("veryfast")
    smaller, smaller_arguments = h264("veryfast", SMALL_HD)
    mp4 = lambda settings: {"container": MP4, "video": settings, "audio": AAC}
    # Several threads render, and none drops a frame.
    melt = [f"real_time=-{os.cpu_count()}", "rescale=bicubic", "vcodec=libx264", "preset=veryfast", "crf=20", "vprofile=high", "g=150",
            "pix_fmt=yuv420p", "acodec=aac", "ab=192000", "ar=48000", "channels=2", "movflags=+faststart"]
    return [
        TimelineCase("timeline-10000-clips", Goals(0.9, None), mp4(tiny), tiny_arguments, "clips"),
        TimelineCase("timeline-10000-files", NO_GOALS, mp4(tiny), tiny_arguments, "files", bounds=(256, 300), only_named=True),
        TimelineCase("timeline-mixed-fade", Goals(0.95), mp4(veryfast), veryfast_arguments, "mixed", melt=melt),
        TimelineCase("timeline-layers", Goals(), mp4(veryfast), veryfast_arguments, "layers"),
        TimelineCase("timeline-sd-in-hd", Goals(), mp4(smaller), smaller_arguments, "colours"),
    ]


def cases():
    fast, fast_arguments = h264("ultrafast", (640, 360))
    long = {"container": MP4, "video": fast, "audio": AC3}
    footage = [two_passes("x264-2pass-footage", 0.87, SD, 900000, "footage.mp4")] if media.has_footage(REAL) else []
    return [
        StartCase("start-help", ["--help"], 0.030),
        StartCase("start-presets", ["presets"], 0.060),
        one_pass("x264-medium", 0.96, "medium"),
        one_pass("x264-medium-720p", 0.95, "medium", SMALL_HD),
        one_pass("x264-medium-480p", 0.92, "medium", SD),
        one_pass("x264-ultrafast", 0.96, "ultrafast"),
        one_pass("cut-10s-far-inside", 0.97, "medium", source="long.mp4", cut=(100.3, 110.3)),
        two_passes("x264-2pass", 0.82, HD, 8000000),
        two_passes("x264-2pass-720p", 0.87, SMALL_HD, 4000000),
        two_passes("x264-2pass-480p", 0.87, SD, 2000000),
        two_passes("x264-2pass-half", 0.82, HD, 8000000, only_named=True, firstPass="half"),
        *footage, *other_codecs(), *sound_alone(), *cut_together(),
        Case("memory-1-minute", Goals(), long, fast_arguments, "minute.mp4", (640, 360), sound=AC3_ARGUMENTS, limited=False),
        Case("memory-20-minutes", Goals(), long, fast_arguments, "minutes.mp4", (640, 360), sound=AC3_ARGUMENTS, limited=False, only_named=True),
    ]
