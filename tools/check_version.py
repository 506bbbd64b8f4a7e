#!/usr/bin/env python3
"""Checks that the newest heading of CHANGELOG.md and a release's tag on HEAD name the version in CMakeLists.txt.

Usage: check_version.py [ROOT]

The tag of a release is "v" followed by a number. Other tags, and a folder that is no git repository, are ignored.
"""
import re
import subprocess
import sys
from pathlib import Path

VERSION = re.compile(r"^project\(\w+ VERSION (\d+\.\d+\.\d+)\b", re.MULTILINE)
HEADING = re.compile(r"^## (.*)$", re.MULTILINE)
HEADING_FORM = re.compile(r"(\d+\.\d+\.\d+) \((not released|\d{4}-\d{2}-\d{2})\)")
RELEASE_TAG = re.compile(r"v\d.*")


def release_tags(root):
    """Returns the tags of releases on HEAD; none if ROOT is not a repository itself."""
    if not (root / ".git").exists():
        return []
    done = subprocess.run(["git", "-C", root, "tag", "--points-at", "HEAD"], capture_output=True, text=True, check=True)
    return list(filter(RELEASE_TAG.fullmatch, done.stdout.split()))


def complaints_about(root):
    """Returns a sentence for each place that names another version."""
    version = VERSION.search((root / "CMakeLists.txt").read_text(encoding="utf-8"))
    if not version:
        return ["CMakeLists.txt: project() names no VERSION of three numbers"]
    version = version[1]
    heading = HEADING.search((root / "CHANGELOG.md").read_text(encoding="utf-8"))
    form = heading and HEADING_FORM.fullmatch(heading[1])
    if not form:
        return ["CHANGELOG.md: the newest heading is not of the form '## 1.2.3 (2026-01-31)' or "
                "'## 1.2.3 (not released)'"]
    found = []
    if form[1] != version:
        found.append(f"CHANGELOG.md: the newest heading names {form[1]}, CMakeLists.txt {version}")
    tags = release_tags(root)
    found += [f"the tag {tag} is on HEAD, but CMakeLists.txt names {version}" for tag in tags if tag != "v" + version]
    if tags and form[2] == "not released":
        found.append(f"CHANGELOG.md: HEAD has the tag {tags[0]}, but the newest heading has no date")
    return found


def main():
    root = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parent.parent)
    complaints = complaints_about(root)
    print("".join(complaint + "\n" for complaint in complaints), end="")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
