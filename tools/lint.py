#!/usr/bin/env python3
"""Runs clang-tidy over the sources, again those that changed since they were last found clean.

Usage: lint.py BUILD [PATH...]
BUILD is a build folder that is up to date; PATHs narrow the run to sources that begin with one of them.
"""
import hashlib
import json
import os
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
STAMPS = ROOT / "build" / "lint"


def read_dependencies(build):
    """Maps each source to the project's files that it was compiled from, as Ninja noted them."""
    notes = subprocess.run(["ninja", "-C", build, "-t", "deps"], capture_output=True, text=True, check=True).stdout
    dependencies = {}
    for note in notes.split("\n\n"):
        lines = [Path(os.path.realpath(build / line.strip())) for line in note.strip().splitlines()[1:]]
        own = [path for path in lines if path.is_relative_to(ROOT)]
        if own:
            dependencies[own[0]] = sorted(own)
    return dependencies


def fingerprint(files):
    """Changes when one of the files or the configuration does."""
    digest = hashlib.sha256()
    for file in [ROOT / ".clang-tidy", *files]:
        digest.update(file.read_bytes())
    return digest.hexdigest()


def write_commands(commands):
    """Writes how the sources are compiled without headers parsed beforehand: clang-tidy cannot read what another
    compiler parsed, and without them a source has to include what it uses."""
    for command in commands:
        command["command"] = re.sub(r"-Winvalid-pch -include \S+/cmake_pch\.hxx ", "", command["command"])
    STAMPS.mkdir(parents=True, exist_ok=True)
    (STAMPS / "compile_commands.json").write_text(json.dumps(commands))


def lint(source, files):
    """The complaints about one source; notes a clean one."""
    stamp = STAMPS / source.relative_to(ROOT)
    current = fingerprint(files)
    if stamp.exists() and stamp.read_text() == current:
        return ""
    # The analyzer spends its time in the macros of the test framework and finds nothing there.
    narrowed = ["--checks=-clang-analyzer-*"] if source.is_relative_to(ROOT / "tests") else []
    done = subprocess.run(
        ["clang-tidy", "-p", STAMPS, "--quiet", *narrowed, source], capture_output=True, text=True, check=False)
    if done.returncode == 0:
        stamp.parent.mkdir(parents=True, exist_ok=True)
        stamp.write_text(current)
        return ""
    return done.stdout or done.stderr


def main():
    build = Path(sys.argv[1]).resolve()
    dependencies = read_dependencies(build)
    commands = json.loads((build / "compile_commands.json").read_text())
    write_commands(commands)
    sources = sorted({Path(os.path.realpath(command["file"])) for command in commands} & dependencies.keys())
    wanted = [
        source for source in sources
        if not source.is_relative_to(ROOT / "build")
        and (len(sys.argv) < 3 or str(source.relative_to(ROOT)).startswith(tuple(sys.argv[2:])))
    ]
    if not wanted:
        print("There are no compiled sources to look at.")
        return 1
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        complaints = list(filter(None, pool.map(lambda s: lint(s, dependencies[s]), wanted)))
    print("\n".join(complaints), end="")
    print(f"{len(wanted) - len(complaints)} of {len(wanted)} sources are clean.")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
