# SPDX-License-Identifier: GPL-3.0-or-later
"""What two files have to have in common before the times that they took are compared."""
import json
import math
import re
import subprocess
import sys
from typing import NamedTuple

LEAST_SSIM = -0.001
MOST_SIZE = 0.03
LEAST_RATIO = -0.1  # dB, of sound to its distortion


class Shape(NamedTuple):
    frame: str
    frames: int
    rate: float
    seconds: float  # of the longest track


def shape(path):
    command = ["ffprobe", "-v", "error", "-count_packets", "-of", "json", "-show_entries",
               "format=duration:stream=codec_type,width,height,nb_read_packets,duration,r_frame_rate", str(path)]
    told = json.loads(subprocess.run(command, capture_output=True, check=True).stdout)
    pictures = next(one for one in told["streams"] if one["codec_type"] == "video")
    rise, run = pictures["r_frame_rate"].split("/")
    seconds = [float(one.get("duration", told["format"]["duration"])) for one in told["streams"]]
    return Shape(f"{pictures['width']}x{pictures['height']}", int(pictures["nb_read_packets"]), int(rise) / int(run), max(seconds))


def graph(inputs, parts):
    """What ffmpeg says while it runs a filter graph to nothing."""
    command = ["ffmpeg", "-nostdin", *inputs, "-filter_complex", ";".join(parts), "-f", "null", "-"]
    ended = subprocess.run(command, capture_output=True, text=True)
    if ended.returncode != 0:
        sys.exit(f"{' '.join(command)}\nended with {ended.returncode}: {ended.stderr}")
    return ended.stderr


def likenesses(reference, outputs):
    """SSIM of each file to what ffmpeg makes of `reference`: its inputs and a graph that ends in [v]. Frame by frame, whatever
    their times."""
    inputs, source = reference
    count = inputs.count("-i")
    copies = "".join(f"[r{at}]" for at in range(len(outputs)))
    parts = [source, f"[v]settb=1/1000,setpts=N,split={len(outputs)}{copies}"]
    for at, path in enumerate(outputs):
        inputs = [*inputs, "-i", str(path)]
        parts.append(f"[{count + at}:v]settb=1/1000,setpts=N[o{at}];[o{at}][r{at}]ssim@{at}")
    told = graph(inputs, parts)
    return [float(re.findall(rf"\[ssim@{at} .*All:([0-9.]+)", told)[-1]) for at in range(len(outputs))]


def of_pictures(reference, own, other, scaled_alike=True):
    """How much more than the other file one is like the source, and what lies beyond the gates. A program that scales in another
    way may have made the encoder's work larger, not smaller."""
    mine, theirs = shape(own), shape(other)
    if mine.frame != theirs.frame:
        return "-", [f"{mine.frame} beside {theirs.frame}"]
    beyond = [f"{mine.frames} frames beside {theirs.frames}"] if mine.frames != theirs.frames else []
    if abs(mine.seconds - theirs.seconds) > 1 / theirs.rate:
        beyond.append(f"{mine.seconds:.3f} s beside {theirs.seconds:.3f}")
    like, other_like = likenesses(reference, [own, other])
    if like - other_like < LEAST_SSIM:
        beyond.append(f"SSIM {like:.4f} beside {other_like:.4f}")
    return f"{like - other_like:+.4f}", beyond + of_size(own, other, scaled_alike)


def of_size(own, other, both_ways=True):
    size = own.stat().st_size / other.stat().st_size - 1
    return [f"size {size:+.1%}"] if (abs(size) if both_ways else size) > MOST_SIZE else []


def sound(source, path):
    """Number of samples in a file, and how far its distortion lies below what it has of the source, in dB."""
    inputs = ["-i", str(path), "-i", str(source)]
    told = graph(inputs, ["[0:a]astats@count=measure_overall=Number_of_samples:measure_perchannel=none[a];[a][1:a]asdr@like"])
    ratios = [float(ratio) for ratio in re.findall(r"\[asdr@like .*SDR ch\d+: (\S+) dB", told)]
    return int(re.findall(r"\[astats@count .*Number of samples: (\d+)", told)[-1]), min(ratios)


def of_sound(source, own, other):
    """The same of files of sound alone: neither may have fewer or more samples, or be less like the source."""
    (samples, ratio), (other_samples, other_ratio) = sound(source, own), sound(source, other)
    beyond = [f"{samples} samples beside {other_samples}"] if samples != other_samples else []
    difference = 0 if ratio == other_ratio else ratio - other_ratio
    if difference < LEAST_RATIO:
        beyond.append(f"{ratio:.1f} dB of sound to distortion beside {other_ratio:.1f}")
    told = "exact" if math.isinf(ratio) else f"{difference:+.2f} dB"
    return told, beyond + of_size(own, other)
