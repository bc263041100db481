# SPDX-License-Identifier: GPL-3.0-or-later
"""Other programs on the same encoders, where they are installed: their commands for a case, none where they cannot do the same."""
import os
import shutil

from cases import SoundCase, TimelineCase, WORK


def handbrake(case, output):
    x264 = case.x264
    # Its cut begins at another frame.
    if not x264 or case.cut:
        return []
    rate = ["-b", str(x264.bitrate // 1000), "--two-pass", "--turbo"] if x264.bitrate else ["-q", str(x264.quality)]
    peak = f":vbv-maxrate={x264.bitrate * 3 // 2000}:vbv-bufsize={x264.bitrate * 3 // 1000}" if x264.bitrate else ""
    return [["HandBrakeCLI", "-i", str(WORK / case.source), "-o", str(output), "-f", "av_mp4", "-O", "-e", "x264",
             "--encoder-preset", x264.preset, "--encoder-profile", "high", "-x", f"keyint=150{peak}", *rate, "--vfr", "--crop",
             "0:0:0:0", "-w", str(case.size[0]), "-l", str(case.size[1]), "--non-anamorphic", "--no-comb-detect", "--no-deinterlace",
             "--no-decomb", "-a", "1", "-E", "av_aac", "-B", "192", "-R", "48", "-6", "stereo"]]


def project(case):
    """The case's source in a project of melt's with the frame that is wanted, since a frame's size is no option of its own."""
    (width, height), path = case.size, WORK / f"{case.name}.mlt"
    path.write_text(
        f'<mlt><profile width="{width}" height="{height}" progressive="1" sample_aspect_num="1" sample_aspect_den="1" '
        f'display_aspect_num="{width}" display_aspect_den="{height}" frame_rate_num="30" frame_rate_den="1" colorspace="709"/>'
        f'<producer id="one"><property name="resource">{WORK / case.source}</property></producer></mlt>')
    return path


def melt(case, output):
    if isinstance(case, TimelineCase):
        return [["melt", str(WORK / (case.timeline + ".mlt")), "-consumer", f"avformat:{output}", *case.melt]] if case.melt else []
    # Its two passes would have to be told apart by hand.
    if not case.x264 or case.two_passes or case.cut:
        return []
    return [["melt", str(project(case)), "-consumer", f"avformat:{output}", f"real_time=-{os.cpu_count()}", "rescale=bicubic",
             "vcodec=libx264", f"preset={case.x264.preset}", f"crf={case.x264.quality}", "vprofile=high", "g=150", "pix_fmt=yuv420p",
             "acodec=aac", "ab=192000", "ar=48000", "channels=2", "movflags=+faststart"]]


KNOWN = {"HandBrakeCLI": handbrake, "melt": melt}


def installed():
    return [name for name in KNOWN if shutil.which(name)]


def commands(name, case, output):
    return [] if isinstance(case, SoundCase) else KNOWN[name](case, output)
