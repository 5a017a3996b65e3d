"""Medians, ratios and the tables."""
import os
import platform
import statistics
import subprocess

import timing

HEADER = """| job | against | Quillon wall s | CPU s | MiB | other wall s | CPU s | MiB | wall ratio (min to max) | CPU ratio | results |
|---|---|---|---|---|---|---|---|---|---|---|"""


def remove(paths):
    for path in paths:
        if os.path.exists(path):
            os.remove(path)


def measured(bench, run):
    """One run, its files removed before, so that each run writes fresh files."""
    remove(run.made)
    whole, printed = bench.run(run.command)
    for path in run.made:
        if not os.path.exists(path):
            raise SystemExit(f"{run.name} made no {path}: {' '.join(run.command)}")
    return timing.job_cost(whole, printed)


def median(costs, figure):
    return statistics.median(getattr(cost, figure) for cost in costs)


def ratios(ours, others, figure):
    """Pair by pair, since the machine drifts within minutes."""
    return [getattr(a, figure) / max(getattr(b, figure), 1e-4) for a, b in zip(ours, others)]


def compare(bench, row, pairs):
    """Table lines of a row, one for each other program. The first round is checked and does not count."""
    measured(bench, row.ours)
    results = []
    for other in row.others:
        measured(bench, other)
        results.append(row.same(row.ours, other))
    ours, theirs = [], [[] for _ in row.others]
    for _ in range(pairs):
        ours.append(measured(bench, row.ours))
        for costs, other in zip(theirs, row.others):
            costs.append(measured(bench, other))
    for run in [row.ours, *row.others]:
        remove(run.made)
    return [line(row.name, other.name, ours, costs, result)
            for other, costs, result in zip(row.others, theirs, results)]


def line(name, other, ours, costs, result):
    walls = ratios(ours, costs, "wall")
    cells = [name, other]
    for side in (ours, costs):
        cells += [f"{median(side, 'wall'):.2f}", f"{median(side, 'cpu'):.2f}", f"{median(side, 'peak'):.0f}"]
    cells += [f"**{statistics.median(walls):.2f}** ({min(walls):.2f} to {max(walls):.2f})",
              f"{statistics.median(ratios(ours, costs, 'cpu')):.2f}", result]
    return "| " + " | ".join(cells) + " |"


def in_process(bench, options):
    """Start, redraw and scroll: milliseconds as the program itself takes them."""
    lines = ["| what | wall ms | CPU ms | MiB |", "|---|---|---|---|"]
    starts, windows = [], []
    for _ in range(max(options.pairs, 5)):
        for program, costs in (("quillon-bench", starts), ("quillon-bench-window", windows)):
            command = [bench.program(program)] + (["start"] if program == "quillon-bench" else [])
            whole, printed = bench.run(command)
            costs.append(timing.Cost(timing.lines_of(printed, "paint")[0][0], whole.cpu, whole.peak))
    for name, costs in (("start to first paint", starts), ("the same, the toolkit's bare window", windows)):
        lines.append(f"| {name} | {1000 * median(costs, 'wall'):.1f} | {1000 * median(costs, 'cpu'):.1f} "
                     f"| {median(costs, 'peak'):.0f} |")
    album, cuts = (os.path.join(options.album, name) for name in ("album.wav", "album.cuts"))
    _, printed = bench.run([bench.program("quillon-bench"), "draw", album, cuts])
    for level, wall, cpu in timing.lines_of(printed, "redraw"):
        lines.append(f"| redraw at zoom level {level:.0f} | {1000 * wall:.2f} | {1000 * cpu:.2f} | |")
    for level, wall, cpu in timing.lines_of(printed, "scroll"):
        lines.append(f"| scroll step at zoom level {level:.0f} | {1000 * wall:.2f} | {1000 * cpu:.2f} | |")
    return "\n".join(lines)


def first_line(*command):
    try:
        output = subprocess.run(command, capture_output=True, text=True).stdout
    except FileNotFoundError:
        return ""
    return output.splitlines()[0].strip() if output else ""


def machine_line(target):
    with open("/proc/cpuinfo", encoding="utf-8", errors="replace") as file:
        models = [text.split(":", 1)[1].strip() for text in file if text.startswith("model name")]
    memory = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") / 2**30
    system = platform.freedesktop_os_release().get("PRETTY_NAME", platform.system())
    versions = [first_line("ffmpeg", "-version").split(" Copyright")[0], first_line("lame", "--version"),
                first_line("oggenc", "--version"), first_line("sox", "--version").split(":")[-1].strip()]
    return (f"Machine: {len(os.sched_getaffinity(0))} x {models[0] if models else platform.machine()}, "
            f"{memory:.0f} GiB, {system}, Linux {platform.release()}; files written to {target}. "
            f"Others: {'; '.join(v for v in versions if v)}.")
