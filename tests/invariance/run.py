#!/usr/bin/python3
"""One set of work under every circumstance: plays random runs of commands and compares what comes out with exact arithmetic.

Usage: run.py KAVEL SOURCE [--runs N] [--seed S] [--jobs J] [--keep DIR] [--only SEED]
"""
import argparse
import concurrent.futures
import os
import random
import shutil
import subprocess
import sys
import tempfile
import time
import traceback
from collections import Counter

import circumstances
import steps
from play import Player
from report import Report
from world import World


def plan(seed, length=None):
    """(world, steps) of a run."""
    rng = random.Random(seed)
    world = World(rng, circumstances.draw(rng))
    planned = steps.plan(world, length or rng.randint(10, 30))
    return world, planned


def words_of(seed):
    """What a run is, in words."""
    world, planned = plan(seed)
    return "; ".join([str(world.circumstances), *[step.title for step in planned]])


def play(seed, kavel, source, folder, locales):
    """The report of a run, and the circumstances in words."""
    report = Report()
    world, planned = plan(seed)
    place = os.path.join(folder, str(seed))
    player = Player(kavel, source, place, world.circumstances, world.settings, locales)
    results, fault = player.play(planned)
    for i, (step, result) in enumerate(zip(planned, results)):
        for check in step.checks:
            before = len(report.differences)
            try:
                check(report, result)
            except Exception:
                report.differences.append("the suite itself: " + traceback.format_exc(limit=3))
            report.differences[before:] = [f"step {i} ({step.title}): {d}" for d in report.differences[before:]]
        if len(report.differences) > 20:
            break
    if fault:
        report.differences.append(fault)
    elif results:
        report.same("audit", "of the last drawing", player.audit(len(results) - 1), [])
    report.checks["commands"] = len(results)
    return seed, report, str(world.circumstances)


def language(folder):
    """A folder with the French language where the machine has none."""
    try:
        subprocess.run(["localedef", "-i", "fr_FR", "-f", "UTF-8", os.path.join(folder, "fr_FR.UTF-8")], check=True, capture_output=True)
        return folder
    except (OSError, subprocess.CalledProcessError):
        return None


def wanted(words, arguments):
    return arguments.only_with in words and not any(a in words for a in arguments.avoid)


def options():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("kavel")
    parser.add_argument("source")
    parser.add_argument("--runs", type=int, default=80)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--keep", help="folder for the drawings and scripts of runs that differ")
    parser.add_argument("--with", dest="only_with", default="", help="only runs of whose circumstances or commands this is a part, as copied")
    parser.add_argument("--avoid", action="append", default=[], help="no runs of whose circumstances or commands this is a part")
    parser.add_argument("--first", action="store_true", help="end with the first run that differs")
    parser.add_argument("--only", type=int, help="play the run of this seed alone")
    return parser.parse_args()


def show(seed, report, words, arguments):
    print(f"run {seed}: {len(report.differences)} differences ({words})")
    for difference in report.differences[:8]:
        print("  " + difference.replace("\n", "\n    "))
    print(f"  again: tests/invariance/run.py {arguments.kavel} {arguments.source} --only {seed} --keep DIR", flush=True)


def main():
    arguments = options()
    arguments.kavel = os.path.abspath(arguments.kavel)
    arguments.source = os.path.abspath(arguments.source)
    seeds = [arguments.only] if arguments.only is not None else list(range(arguments.seed, arguments.seed + arguments.runs))
    if arguments.only_with or arguments.avoid:
        seeds = [s for s in seeds if wanted(words_of(s), arguments)]
    if not seeds:
        print("no run of these seeds is of that kind")
        return 1
    print(f"seeds {seeds[0]} to {seeds[-1]}", flush=True)
    checks, ties, differing, begun = Counter(), Counter(), [], time.time()
    with tempfile.TemporaryDirectory() as folder, concurrent.futures.ProcessPoolExecutor(arguments.jobs) as pool:
        locales = language(folder)
        if not locales:
            print("localedef can't make fr_FR.UTF-8: those runs speak the machine's language")
        waiting = [pool.submit(play, seed, arguments.kavel, arguments.source, folder, locales) for seed in seeds]
        for done in concurrent.futures.as_completed(waiting):
            seed, report, words = done.result()
            checks.update(report.checks)
            ties.update(report.ties)
            if report.differences:
                differing.append(seed)
                show(seed, report, words, arguments)
                if arguments.first:
                    pool.shutdown(wait=False, cancel_futures=True)
                    break
            if arguments.keep and (report.differences or arguments.only is not None):
                shutil.copytree(os.path.join(folder, str(seed)), os.path.join(arguments.keep, str(seed)), dirs_exist_ok=True)
            shutil.rmtree(os.path.join(folder, str(seed)), ignore_errors=True)
    print(f"{len(seeds)} runs in {time.time() - begun:.0f} s; differing: {len(differing)} {sorted(differing)[:20]}")
    for kind in sorted(checks):
        print(f"  {kind:12} {checks[kind]:9}" + (f", {ties[kind]} on a tie of rounding" if ties[kind] else ""))
    return 1 if differing else 0


if __name__ == "__main__":
    sys.exit(main())
