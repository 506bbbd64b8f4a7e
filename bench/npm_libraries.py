"""Fetches libraries of npm, for benchmarks that compare with them or use their documents."""

import shutil
import subprocess


def fetch(libraries, folder):
    """Installs libraries, given by name and version, in a folder. Returns False if npm cannot fetch them."""
    if shutil.which("npm") is None:
        return False
    wanted = [f"{name}@{version}" for name, version in libraries.items()]
    fetched = subprocess.run(["npm", "install", "--silent", "--prefix", folder, *wanted], capture_output=True, check=False)
    return fetched.returncode == 0
