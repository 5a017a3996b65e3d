"""Runs Quillon and other programs in turn on one album and prints tables of medians and ratios. Called by bench/run."""
import argparse
import os
import shutil
import sys
import tempfile

import jobs
import report
import timing

MEMORY = "/dev/shm"


def arguments():
    parser = argparse.ArgumentParser(prog="bench/run", description="[MINUTES] stands before the options.")
    parser.add_argument("--programs", required=True, type=os.path.abspath, help=argparse.SUPPRESS)
    parser.add_argument("--album", required=True, type=os.path.abspath, help=argparse.SUPPRESS)
    parser.add_argument("--pairs", type=int, default=3, help="runs of each program in each row")
    parser.add_argument("--engine", action="store_true", help="the engine alone, without the window")
    parser.add_argument("--only", default="", metavar="WORD", help="only rows whose name holds WORD")
    parser.add_argument("--disk", action="store_true", help="write to the disk of the cache folder")
    return parser.parse_args()


def target_parent(album, on_disk):
    """Memory-backed storage where three copies of the album fit, else the folder of the albums."""
    needed = 3 * os.path.getsize(os.path.join(album, "album.wav"))
    if not on_disk and os.path.isdir(MEMORY) and shutil.disk_usage(MEMORY).free > needed:
        return MEMORY
    return os.path.dirname(album)


def main():
    options = arguments()
    parent = target_parent(options.album, options.disk)
    with tempfile.TemporaryDirectory(prefix="quillon-bench-", dir=parent) as target:
        bench = timing.Bench(options.programs, target)
        print(report.machine_line(parent) + "\n", flush=True)
        rows = jobs.opens(options, target) + jobs.saves(options, target) + jobs.extracts(options, target) + jobs.save_alls(options, target)
        chosen = [row for row in rows if options.only in row.name]
        if chosen:
            print(report.HEADER, flush=True)
        for row in chosen:
            for line in report.compare(bench, row, options.pairs):
                print(line, flush=True)
        if not options.engine and options.only in "start draw":
            print("\n" + report.in_process(bench, options), flush=True)
    return 0


if __name__ == "__main__":
    sys.exit(main())
