# SPDX-License-Identifier: GPL-3.0-or-later
"""Timelines for benchmarks/compare: their media, their OpenTimelineIO files and what the ffmpeg program is told instead."""
import json

RATE = 30
MIXED = [("1920x1080", "30"), ("1280x720", "25"), ("640x360", "30000/1001"), ("1920x1080", "24"), ("720x576", "50")]
SECONDS_EACH = 12
HANDLE = 1  # seconds of material before and behind each clip
CLIPS = 10000
TITLE = b"takes the number of the file"
# Beside the left pixel, where it is; left to itself ffmpeg's scaler moves it.
CHROMA_OUT = "out_h_chr_pos=0:out_v_chr_pos=128"
CHROMA = f"in_h_chr_pos=0:in_v_chr_pos=128:{CHROMA_OUT}"


def time(seconds, rate=RATE):
    return {"OTIO_SCHEMA": "RationalTime.1", "rate": rate, "value": round(seconds * rate)}


def time_range(start, duration):
    return {"OTIO_SCHEMA": "TimeRange.1", "start_time": time(start), "duration": time(duration)}


def clip(media, start, duration, available):
    return {"OTIO_SCHEMA": "Clip.1", "name": media, "source_range": time_range(start, duration),
            "media_reference": {"OTIO_SCHEMA": "ExternalReference.1", "target_url": media,
                                "available_range": time_range(0, available)}}


def track(kind, children):
    return {"OTIO_SCHEMA": "Track.1", "name": kind, "kind": kind, "children": children}


def timeline(tracks):
    return json.dumps({"OTIO_SCHEMA": "Timeline.1", "name": "compare", "tracks": {"OTIO_SCHEMA": "Stack.1", "children": tracks}})


def concatenation(names):
    """ffmpeg's list. Without their length it would count the file's own, which is in milliseconds."""
    return "ffconcat version 1.0\n" + "".join(f"file {name}\nduration {2 / RATE:.6f}\n" for name in names)


def write_clips(folder):
    """Ten thousand clips of two frames each."""
    children = [clip("two.mov", 0, 2 / RATE, 2 / RATE)] * CLIPS
    (folder / "clips.otio").write_text(timeline([track("Video", children), track("Audio", children)]))
    (folder / "clips.txt").write_text(concatenation(["two.mov"] * CLIPS))


def write_files(folder):
    """As many clips, each of a file of its own: copies of one, whose title tells them apart."""
    names = [f"files/two{i:05}.mov" for i in range(CLIPS)]
    children = [clip(name, 0, 2 / RATE, 2 / RATE) for name in names]
    (folder / "files.otio").write_text(timeline([track("Video", children), track("Audio", children)]))
    (folder / "files.txt").write_text(concatenation(names))
    (folder / "files").mkdir(exist_ok=True)
    content = (folder / "titled.mov").read_bytes()
    assert content.count(TITLE) == 1
    for i, name in enumerate(names):
        if not (folder / name).exists():
            (folder / name).write_bytes(content.replace(TITLE, b"%0*d" % (len(TITLE), i)))


def write_mixed(folder):
    """A minute of five clips of several sizes and rates; one cut is a dissolve of a second."""
    dissolve = {"OTIO_SCHEMA": "Transition.1", "transition_type": "SMPTE_Dissolve", "in_offset": time(0.5),
                "out_offset": time(0.5)}
    children = [clip(f"mixed{i}.mp4", HANDLE, SECONDS_EACH, SECONDS_EACH + 2 * HANDLE) for i in range(len(MIXED))]
    children.insert(2, dissolve)
    (folder / "mixed.otio").write_text(timeline([track("Video", children), track("Audio", children)]))


def write_melt(folder):
    """The same for melt, whose frames are counted at the rate of the cut."""
    def part(i, first, count, kind="entry"):
        return f'<{kind} producer="m{i}" in="{first}" out="{first + count - 1}"/>'

    whole, half, before = SECONDS_EACH * RATE, RATE // 2, HANDLE * RATE
    producers = "".join(f'<producer id="m{i}"><property name="resource">{folder / f"mixed{i}.mp4"}</property></producer>'
                        for i in range(len(MIXED)))
    fades = "".join(f'<transition in="0" out="{2 * half - 1}"><property name="a_track">0</property><property name="b_track">1'
                    f'</property><property name="mlt_service">{service}</property>{more}</transition>'
                    for service, more in (("luma", ""), ("mix", '<property name="start">-1</property>')))
    mix = (f'<tractor id="mix" in="0" out="{2 * half - 1}">{part(1, before + whole - half, 2 * half, "track")}'
           f'{part(2, before - half, 2 * half, "track")}{fades}</tractor>')
    entries = (part(0, before, whole) + part(1, before, whole - half) + f'<entry producer="mix" in="0" out="{2 * half - 1}"/>' +
               part(2, before + half, whole - half) + part(3, before, whole) + part(4, before, whole))
    (folder / "mixed.mlt").write_text(
        f'<mlt><profile width="1920" height="1080" progressive="1" sample_aspect_num="1" sample_aspect_den="1" '
        f'display_aspect_num="16" display_aspect_den="9" frame_rate_num="{RATE}" frame_rate_den="1" colorspace="709"/>'
        f'{producers}{mix}<playlist id="cut">{entries}</playlist></mlt>')


def write_layers(folder):
    """Ten seconds with a moving layer of half the size, half transparent."""
    tracks = [track("Video", [clip("short.mp4", 0, 10, 10)]), track("Video", [clip("layer.mov", 0, 10, 10)]),
              track("Audio", [clip("short.mp4", 0, 10, 10)])]
    (folder / "layers.otio").write_text(timeline(tracks))


def write_colours(folder):
    """A second of high definition, which decides about the colours, and nine of standard definition, which become those."""
    children = [clip("high.mp4", 0, 1, 1), clip("standard.mp4", 0, 9, 9)]
    (folder / "colours.otio").write_text(timeline([track("Video", children), track("Audio", children)]))


def mixed_parts():
    """The graphs of pictures and of sound."""
    parts, sound = [], []
    for i in range(len(MIXED)):
        start, end = HANDLE, HANDLE + SECONDS_EACH
        start, end = (start, end + 0.5) if i == 1 else (start - 0.5, end) if i == 2 else (start, end)
        parts.append(f"[{i}:v]trim={start}:{end},setpts=PTS-STARTPTS,fps={RATE},scale=1920:1080:force_original_aspect_ratio="
                     f"decrease:flags=bicubic:{CHROMA},pad=1920:1080:-1:-1,setsar=1,settb=1/{RATE}[v{i}]")
        sound.append(f"[{i}:a]atrim={start}:{end},asetpts=PTS-STARTPTS[a{i}]")
    # The fade gives one frame more.
    parts.append(f"[v1][v2]xfade=duration=1:offset={SECONDS_EACH - 0.5},settb=1/{RATE}[vx];[v0][vx][v3][v4]concat=n=4,"
                 f"trim=end_frame={len(MIXED) * SECONDS_EACH * RATE}[v]")
    sound.append("[a1][a2]acrossfade=d=1:c1=qsin:c2=qsin[ax];[a0][ax][a3][a4]concat=n=4:v=0:a=1[a]")
    return ";".join(parts), ";".join(sound)


def colour_parts(exactly):
    """As with the others. Colours by zimg, in the way that it takes unless told, or in the one that is exact and slow. ffmpeg's
    `colorspace`, which has several threads, moves chroma."""
    convert = f"zscale=matrix=709:primaries=709:transfer=709:chromal=left:agamma={0 if exactly else 1},format=yuv420p"
    return (f"[1:v]scale=1280:720:flags=bicubic:{CHROMA},{convert},setsar=1,settb=1/{RATE}[v1];[0:v]settb=1/{RATE}[v0];"
            "[v0][v1]concat=n=2[v]", "[0:a]atrim=duration=1[a0];[1:a]atrim=duration=9[a1];[a0][a1]concat=n=2:v=0:a=1[a]")


LAYERS = (f"[1:v]scale=1920:1080:flags=bicubic:out_color_matrix=bt709:{CHROMA_OUT},format=yuva420p[o];[0:v][o]overlay,"
          "trim=duration=10[v]",
          "[0:a]atrim=duration=10[a]")


def media():
    """By name: what ffmpeg is told to make it."""
    quick = ["-c:v", "libx264", "-preset", "veryfast", "-crf", "18", "-pix_fmt", "yuv420p", "-c:a", "aac", "-ac", "2"]
    two = ["-f", "lavfi", "-t", str(2 / RATE), "-i", f"testsrc2=size=160x120:rate={RATE}", "-f", "lavfi", "-t", str(2 / RATE),
           "-i", "sine=frequency=440:sample_rate=48000:samples_per_frame=800", "-c:v", "libx264", "-pix_fmt", "yuv420p",
           "-c:a", "pcm_s16le", "-ac", "2"]
    wanted = {"two.mov": two, "titled.mov": [*two, "-metadata", f"title={TITLE.decode()}"],
              "layer.mov": ["-f", "lavfi", "-i", f"testsrc2=size=960x540:rate={RATE},format=rgba,colorchannelmixer=aa=0.5",
                            "-t", "10", "-c:v", "qtrle"]}
    for name, size, seconds, space, transfer in (("high", "1280x720", 1, "bt709", "bt709"),
                                                 ("standard", "1024x576", 9, "bt470bg", "smpte170m")):
        wanted[f"{name}.mp4"] = ["-f", "lavfi", "-i", f"mandelbrot=size={size}:rate={RATE}:end_scale=0.01,noise=alls=6:allf=t",
                                 "-f", "lavfi", "-i", "sine=frequency=440:sample_rate=48000", "-t", str(seconds), "-colorspace", space,
                                 "-color_primaries", space, "-color_trc", transfer, *quick]
    for i, (size, rate) in enumerate(MIXED):
        wanted[f"mixed{i}.mp4"] = ["-f", "lavfi", "-i", f"testsrc2=size={size}:rate={rate}", "-f", "lavfi", "-i",
                                   f"sine=frequency={300 + 100 * i}:sample_rate=48000", "-t",
                                   str(SECONDS_EACH + 2 * HANDLE), *quick]
    return wanted


WRITERS = {"clips.otio": [write_clips], "files.otio": [write_files], "mixed.otio": [write_mixed, write_melt],
           "layers.otio": [write_layers], "colours.otio": [write_colours]}


def needed(name):
    """The media of a timeline; of everything else none."""
    return {"clips.otio": ["two.mov"], "files.otio": ["titled.mov"], "mixed.otio": [f"mixed{i}.mp4" for i in range(len(MIXED))],
            "layers.otio": ["short.mp4", "layer.mov"], "colours.otio": ["high.mp4", "standard.mp4"]}.get(name, [])


def write(folder, name):
    for writer in WRITERS.get(name, []):
        writer(folder)


def graphs(name, exactly=False):
    """ffmpeg's inputs, the graphs of pictures and of sound, and the length."""
    if name == "layers":
        return ["short.mp4", "layer.mov"], LAYERS, 10
    if name == "colours":
        return ["high.mp4", "standard.mp4"], colour_parts(exactly), 10
    return [f"mixed{i}.mp4" for i in range(len(MIXED))], mixed_parts(), len(MIXED) * SECONDS_EACH


def listed(folder, name):
    return ["-f", "concat", "-safe", "0", "-i", str(folder / f"{name}.txt")]


def pictures(folder, name, exactly=False):
    """ffmpeg's inputs, and a graph that makes the timeline's pictures [v] of them; `exactly` whatever time that takes."""
    if name in ("clips", "files"):
        return listed(folder, name), "[0:v]null[v]"
    names, (graph, _), _ = graphs(name, exactly)
    return [part for one in names for part in ("-i", str(folder / one))], graph


def inputs(folder, name):
    """ffmpeg's, up to the encoder's options."""
    if name in ("clips", "files"):
        return listed(folder, name)
    files, graph = pictures(folder, name)
    _, (_, sound), length = graphs(name)
    return [*files, "-filter_complex", f"{graph};{sound}", "-map", "[v]", "-map", "[a]", "-t", str(length)]
