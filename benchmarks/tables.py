# SPDX-License-Identifier: GPL-3.0-or-later
"""Rows of figures, as text and as markdown."""
import statistics

HEADINGS = ("case", "wall", "goal", "CPU", "memory", "goal", "busy", "limit", "alone", "takes", "like", "size")
MEANINGS = """- wall, CPU, memory: editor-export / other program, median (lowest to highest); memory is the peak. Goals are highest ratios.
- busy: share of all processors' time that was used, by editor-export and by the other.
- limit: ratio of wall time that would be reached if all processors did nothing but what ffmpeg's decoder and encoder do alone.
- alone: wall time of ffmpeg's encoder from raw frames, and of its decoder to nothing, each / ffmpeg's wall time.
- takes: seconds of wall time and of CPU, and peak memory, of editor-export in median; open files where they are bounded.
- like: SSIM to the source, of sound its distance to its distortion, each minus the other's; size: ratio of the files' sizes."""


def met(goal, ratio):
    if goal is None:
        return "-"
    return f"{goal:.2f} {'met' if ratio <= goal else 'missed'}"


def spread(ratios):
    low, middle, high = min(ratios), statistics.median(ratios), max(ratios)
    return f"{middle:.2f}" + (f" ({low:.2f}-{high:.2f})" if len(ratios) > 1 else "")


def row(name, goals, pairs, limits, like, size):
    """`pairs` are figures of editor-export and of the other program."""
    wall, cpu, memory = ([getattr(mine, of) / getattr(theirs, of) for mine, theirs in pairs] for of in ("wall", "cpu", "memory"))
    mine = [own for own, _ in pairs]
    middle = lambda of, sides: statistics.median(of(one) for one in sides)
    busy = [middle(lambda one: one.busy(), side) for side in zip(*pairs)]
    takes = (f"{middle(lambda one: one.wall, mine):.1f} s, {middle(lambda one: one.cpu, mine):.1f} s, "
             f"{middle(lambda one: one.memory, mine):.0f} MiB")
    files = max(one.files for one in mine)
    takes += f", {files} files" if files else ""
    return (name, spread(wall), met(goals.wall, statistics.median(wall)), spread(cpu), spread(memory),
            met(goals.memory, statistics.median(memory)), f"{busy[0]:.0%} / {busy[1]:.0%}", *limits, takes, like, f"{size:.2f}")


def start_row(name, own, other, goal):
    """Of seconds that a program's own code took."""
    middle, others = statistics.median(own), statistics.median(other)
    said = f"{goal * 1000:.0f} ms {'met' if middle <= goal else 'missed'}"
    return (name, f"{middle / others:.2f} (user time)", said, *["-"] * 6, f"{middle * 1000:.0f} ms (ffmpeg -version {others * 1000:.0f} ms)",
            "-", "-")


def text(rows):
    widths = [max(len(row[at]) for row in (HEADINGS, *rows)) for at in range(len(HEADINGS))]
    return "\n".join("  ".join(cell.ljust(width) for cell, width in zip(row, widths)).rstrip() for row in (HEADINGS, *rows))


def markdown(title, rows):
    lines = ["| " + " | ".join(cells) + " |" for cells in (HEADINGS, ["---"] * len(HEADINGS), *rows)]
    return f"{title}\n\n" + "\n".join(lines) + f"\n\n{MEANINGS}\n"
