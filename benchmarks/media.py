# SPDX-License-Identifier: GPL-3.0-or-later
"""What the benchmarks read: made once, below a folder."""
import random
import subprocess
import sys

import timelines

SHOT = 3  # seconds of each shot of what looks natural
SOUND_SECONDS = 600
FOOTAGE = ("40_fixture2.mkv", "11_bbb_800x640_768kbps_30fps_avc_2b_firstpts_10_sec.mp4", "16_count-video.mp4")
FOOTAGE_SECONDS = 13

BEEPS = ["-f", "lavfi", "-i", "sine=frequency=440:sample_rate=48000:beep_factor=4"]
ENCODE = ["-c:v", "libx264", "-preset", "veryfast", "-crf", "18", "-pix_fmt", "yuv420p", "-c:a", "aac", "-ac", "2"]


def make(arguments, output):
    print(f"making {output.name} ...", file=sys.stderr, flush=True)
    new = output.with_name("new-" + output.name)
    subprocess.run(["ffmpeg", "-nostdin", "-loglevel", "error", "-y", *arguments, str(new)], check=True)
    new.rename(output)


def texture(folder, seed):
    """A large picture with as much at every scale as natural ones have: noise in octaves, the coarser the stronger, some of them
    in steps, which gives edges; colours change slowly."""
    picture, width, height, octaves = folder / f"texture{seed}.png", 2560, 1440, 8
    if picture.exists():
        return picture
    chance, inputs, parts = random.Random(seed), [], []
    for octave in range(octaves):
        wide, high = width >> octave, height >> octave
        colour = (lambda: chance.randbytes(wide * high)) if octave > 3 else (lambda: bytes([128]) * (wide * high))
        plane = folder / f"octave{octave}.yuv"
        plane.write_bytes(chance.randbytes(wide * high) + colour() + colour())
        inputs += ["-f", "rawvideo", "-pix_fmt", "yuv444p", "-video_size", f"{wide}x{high}", "-i", str(plane)]
        steps = ",lutyuv=y=trunc(val/64)*64+32" if octave in (5, 6) else ""
        parts.append(f"[{octave}]scale={width}:{height}:flags=bicubic{steps}[o{octave}]")
    joined = "".join(f"[o{octave}]" for octave in range(octaves))
    weights = " ".join(str(round(1.6 ** octave, 2)) for octave in range(octaves))
    parts.append(f"{joined}mix=inputs={octaves}:weights={weights},eq=contrast=1.4:saturation=0.3,format=yuv420p")
    make([*inputs, "-filter_complex", ";".join(parts), "-frames:v", "1"], picture)
    for octave in range(octaves):
        (folder / f"octave{octave}.yuv").unlink(missing_ok=True)
    return picture


def natural(folder):
    """Shots as of a film: a pan, things that move before a still ground, a shaky dark one, a zoom; all with grain."""
    near, far = texture(folder, 1), texture(folder, 5)
    still = ["-loop", "1", "-framerate", "30", "-t", str(SHOT)]
    size = "scale=1920:1080:flags=bicubic,setsar=1,format=yuv420p"
    shots = ["[0]crop=2240:1260:x=20+45*t:y=60+20*sin(t),scale=1920:1080:flags=bicubic,setsar=1,format=yuv420p[s0]",
             f"[1]{size},split=2[ground][more];[more]crop=420:420:300:200,rotate=t/3:c=none[one];[2]crop=300:520:100:90[two];"
             "[ground][one]overlay=x=200+190*t:y=300+80*sin(3*t)[some];[some][two]overlay=x=1500-130*t:y=200+40*t[s1]",
             f"[3]crop=2400:1350:x=60+30*sin(9*t):y=40+24*sin(13*t),{size},eq=brightness=-0.25:contrast=0.6[s2]",
             f"[4]scale=w=1920*(1.05+t/20):h=-2:flags=bicubic:eval=frame,crop=1920:1080,{size}[s3]"]
    inputs = []
    for picture in (near, far, near, near, far):
        inputs += [*still, "-i", str(picture)]
    graph = ";".join(shots) + ";[s0][s1][s2][s3]concat=n=4,noise=alls=5:allf=t[v]"
    return [*inputs, *BEEPS, "-filter_complex", graph, "-map", "[v]", "-map", "5:a", "-shortest", "-t", str(4 * SHOT), *ENCODE]


def footage(real):
    """Real pictures cut together in one frame, each for a thirtieth of a second."""
    inputs, parts = [], []
    for at, name in enumerate(FOOTAGE):
        inputs += ["-i", str(real / name)]
        parts.append(f"[{at}:v]scale=864:486:force_original_aspect_ratio=increase:flags=bicubic,crop=864:486,setsar=1,"
                     f"format=yuv420p,settb=1/30,setpts=N[s{at}]")
    joined = "".join(f"[s{at}]" for at in range(len(FOOTAGE)))
    parts.append(f"{joined}concat=n={len(FOOTAGE)},fps=30[v]")
    return [*inputs, *BEEPS, "-filter_complex", ";".join(parts), "-map", "[v]", "-map", f"{len(FOOTAGE)}:a", "-t",
            str(FOOTAGE_SECONDS), *ENCODE]


def sound():
    """Ten minutes of a tone that wavers under noise that comes and goes, different on both sides."""
    noise = [part for seed in (1, 2) for part in ("-f", "lavfi", "-i", f"anoisesrc=color=pink:sample_rate=48000:amplitude=0.4:seed={seed}")]
    graph = ("[0]volume=0.5,vibrato=f=5:d=0.3,asplit[l][r];[1]tremolo=f=2:d=0.8[n];[2]tremolo=f=3:d=0.9[m];[l][n]amix=2[left];"
             "[r][m]amix=2[right];[left][right]join=inputs=2:channel_layout=stereo[a]")
    return ["-f", "lavfi", "-i", "sine=frequency=220:sample_rate=48000", *noise, "-filter_complex", graph, "-map", "[a]", "-t",
            str(SOUND_SECONDS), "-c:a", "pcm_s16le"]


def has_footage(real):
    return all((real / name).exists() for name in FOOTAGE)


def plain(picture, seconds):
    return ["-f", "lavfi", "-i", picture, *BEEPS, "-t", str(seconds), *ENCODE]


def make_all(folder, seconds, real, names):
    """Those of `names`, which are of media or of timelines; `seconds` is the length of the plain clip."""
    folder.mkdir(parents=True, exist_ok=True)
    full, small = "mandelbrot=size=1920x1080:rate=30:end_scale=0.01,noise=alls=6:allf=t", "testsrc2=size=640x360:rate=30"
    loops = max(1, -(-150 // seconds) - 1)
    known = {"short.mp4": lambda: plain(full, seconds),
             "long.mp4": lambda: ["-stream_loop", str(loops), "-i", str(folder / "short.mp4"), "-c", "copy"],
             "minute.mp4": lambda: plain(small, 60), "minutes.mp4": lambda: plain(small, 1200),
             "natural.mp4": lambda: natural(folder), "footage.mp4": lambda: footage(real), "sound.wav": sound}
    for name, media in timelines.media().items():
        known[name] = lambda media=media: media
    wanted = set(names) | {needed for name in names for needed in timelines.needed(name)}
    for name, arguments in known.items():
        if name in wanted | ({"short.mp4"} if "long.mp4" in wanted else set()) and not (folder / name).exists():
            make(arguments(), folder / name)
    for name in names:
        timelines.write(folder, name)
