#!/usr/bin/env python3
"""Runs clang-tidy over the sources, again those that changed since they were last found clean.

Usage: lint.py [--changed] [PATH...]
With --changed only over what changed since MERGELOOM_LINT_BASE, a commit, or since the commit before the newest one
when it is not set: the changed sources, a source for each changed header, and as many of the others that include a
changed header as MERGELOOM_LINT_MOST (60) has room for. PATHs narrow the run to sources that begin with one of them.
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
BUILD = ROOT / "build" / "lint"
STAMPS = BUILD / "clean"
PROGRAM = "clang-tidy-19"

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*"([^"]+)"', re.MULTILINE)


class NoBase(Exception):
    """There is no commit for the comparison. The text is the reason."""


def run(*command):
    """Returns what the command printed; ends this program when it fails."""
    done = subprocess.run(command, capture_output=True, text=True, cwd=ROOT, check=False)
    if done.returncode:
        sys.exit(f"{' '.join(map(str, command))} failed:\n{done.stdout}{done.stderr}")
    return done.stdout


def configure():
    """Configures a build folder for clang-tidy alone, which takes seconds: in it each source is compiled by itself and
    without headers parsed beforehand, which clang-tidy cannot read. Returns the sources that it compiles."""
    run("cmake", "-G", "Ninja", "-S", ROOT, "-B", BUILD, "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_COMPILER_LAUNCHER=",
        "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON", "-DMERGELOOM_UNITY=OFF", "-DMERGELOOM_PRECOMPILE=OFF")
    if "\nLibreOffice_headers: " in run("ninja", "-C", BUILD, "-t", "targets", "all"):
        run("ninja", "-C", BUILD, "LibreOffice_headers")
    commands = json.loads((BUILD / "compile_commands.json").read_text(encoding="utf-8"))
    files = {Path(os.path.realpath(command["file"])) for command in commands}
    return sorted(file for file in files if file.is_relative_to(ROOT) and not file.is_relative_to(ROOT / "build"))


def included_files(file, known):
    """Returns the file and all of the project's own files that it includes, directly or through others; keeps the
    direct ones of each in `known`."""
    found, waiting = {file}, [file]
    while waiting:
        current = waiting.pop()
        if current not in known:
            places = (ROOT, ROOT / "tests", current.parent)
            names = INCLUDE.findall(current.read_text(encoding="utf-8"))
            paths = (next((place / name for place in places if (place / name).is_file()), None) for name in names)
            known[current] = [path for path in paths if path]
        fresh = set(known[current]) - found
        found |= fresh
        waiting += fresh
    return found


def git(*arguments):
    """Returns what git printed, or None when it failed."""
    try:
        done = subprocess.run(["git", *arguments], capture_output=True, text=True, cwd=ROOT, check=False)
    except FileNotFoundError:
        return None
    return None if done.returncode else done.stdout.strip()


def find_base():
    """Returns the commit to compare with. Raises NoBase."""
    given = os.environ.get("MERGELOOM_LINT_BASE", "")
    for name in filter(None, (given, "HEAD~1")):
        commit = git("rev-parse", "--verify", "--quiet", name + "^{commit}")
        if commit:
            return commit
        if name == given:
            print(f"Note: MERGELOOM_LINT_BASE names '{given}', which is no commit here.")
    raise NoBase("this is no git repository" if git("rev-parse", "HEAD") is None else
                 "the newest commit has no parent here")


def changed_files(base):
    """Returns the sources and headers that differ from the commit or are new. A file that was only moved is neither."""
    changes = git("diff", "--name-status", "-M", "--diff-filter=d", base) or ""
    fresh = git("ls-files", "--others", "--exclude-standard") or ""
    names = [line.split("\t")[-1] for line in changes.splitlines() if not line.startswith("R100\t")]
    return {ROOT / name for name in names + fresh.splitlines() if name.endswith((".h", ".cpp"))}


def choose(sources, changed, includes):
    """Returns the sources that have to be looked at, then those that only include a changed header."""
    needed = [source for source in sources if source in changed]
    headers = set(changed).difference(needed, *(includes[source] for source in needed))
    for header in sorted(headers):
        users = [source for source in sources if header in includes[source]]
        own = [source for source in users if source == header.with_suffix(".cpp")]
        needed += [source for source in (own or users)[:1] if source not in needed]
    others = [source for source in sources if source not in needed and includes[source] & changed]
    return needed, others


def narrow_to_changes(sources, includes):
    """Returns the sources that --changed looks at, and says in words what they are. Raises NoBase."""
    base = find_base()
    most = int(os.environ.get("MERGELOOM_LINT_MOST") or 60)
    needed, others = choose(sources, changed_files(base), includes)
    print(f"Since {git('log', '-1', '--format=%h (%s)', base)}: {len(needed)} sources to look at, and "
          f"{len(others)} more that include a changed header.")
    left_out = len(needed) + len(others) - most
    if left_out > 0:
        print(f"Note: {left_out} of them are left out, since {most} are as many as are looked at here; scripts/lint "
              "looks at all.")
    return (needed + others)[:most]


def fingerprint(files):
    """Returns a hash that changes with any of the files or the configuration."""
    digest = hashlib.sha256()
    for file in [ROOT / ".clang-tidy", *sorted(files)]:
        digest.update(file.read_bytes())
    return digest.hexdigest()


def lint(source, files):
    """Returns the complaints about one source. Records a source without any."""
    stamp = STAMPS / source.relative_to(ROOT)
    current = fingerprint(files)
    if stamp.exists() and stamp.read_text() == current:
        return ""
    # The analyzer spends its time in the macros of the test framework and finds nothing there.
    narrowed = ["--checks=-clang-analyzer-*"] if source.is_relative_to(ROOT / "tests") else []
    done = subprocess.run(
        [PROGRAM, "-p", BUILD, "--quiet", *narrowed, source], capture_output=True, text=True, check=False)
    if done.returncode == 0:
        stamp.parent.mkdir(parents=True, exist_ok=True)
        stamp.write_text(current)
        return ""
    return done.stdout or done.stderr


def main():
    paths = [argument for argument in sys.argv[1:] if argument != "--changed"]
    sources = [source for source in configure()
               if not paths or str(source.relative_to(ROOT)).startswith(tuple(paths))]
    if not sources:
        print("There are no compiled sources to look at.")
        return 1
    known = {}
    includes = {source: included_files(source, known) for source in sources}
    if "--changed" in sys.argv:
        try:
            sources = narrow_to_changes(sources, includes)
        except NoBase as reason:
            print(f"Note: no source is looked at, since {reason}: there is nothing to compare with.")
            return 0
    with ThreadPoolExecutor(len(os.sched_getaffinity(0))) as pool:
        complaints = 0
        for complaint in filter(None, pool.map(lambda source: lint(source, includes[source]), sources)):
            print(complaint, flush=True)
            complaints += 1
    print(f"{len(sources) - complaints} of {len(sources)} sources are clean.")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
