#!/usr/bin/env python3
"""Runs clang-tidy over src and lang, as a build with clang that compiles several files in one piece sees them.

    scripts/tidy.py BUILD

A header is read once for all the files of a piece, which makes it twice as fast as file by file. The analyzer takes the
files of a piece for code, not for headers, only if the piece is named "UnifiedSource". Two checks make no sense then:
a piece includes .cpp files, and using declarations are looked at in the main file only. tests/structure has both.
"""

import json
import os
import shutil
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor

OPTIONS = [
    "--quiet",
    "--warnings-as-errors=*",
    "--checks=-bugprone-suspicious-include,-misc-unused-using-decls",
    r"--header-filter=/(src|lang)/.*\.(h|cpp)$",
    "--extra-arg=-Wno-unknown-warning-option",
]


def is_ours(path, source):
    inside = os.path.relpath(path, source)
    return "/Unity/" in path and "/tests/" not in path or inside.startswith(("src/", "lang/"))


def pieces(build, source, folder):
    """The build's commands, with every piece under a name that the analyzer knows."""
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        commands = [entry for entry in json.load(file) if is_ours(entry["file"], source)]
    for entry in commands:
        path = entry["file"]
        if "/Unity/" in path:
            target = os.path.basename(os.path.dirname(os.path.dirname(path)))
            named = os.path.join(folder, f"UnifiedSource-{target}-{os.path.basename(path)}")
            shutil.copy(path, named)
            entry["command"] = entry["command"].replace(path, named)
            entry["file"] = named
    return commands


def tidy(folder, path):
    run = subprocess.run(["clang-tidy", "-p", folder, *OPTIONS, path], capture_output=True, text=True, check=False)
    return run.returncode, run.stdout + run.stderr if run.returncode else run.stdout


def main():
    build = os.path.realpath(sys.argv[1])
    source = os.path.dirname(os.path.dirname(os.path.realpath(__file__)))
    with tempfile.TemporaryDirectory() as folder:
        commands = pieces(build, source, folder)
        if not commands:
            sys.exit(f"{build} has nothing to look at")
        with open(os.path.join(folder, "compile_commands.json"), "w", encoding="utf-8") as file:
            json.dump(commands, file)
        with ThreadPoolExecutor(os.cpu_count()) as pool:
            results = list(pool.map(lambda entry: tidy(folder, entry["file"]), commands))
    sys.stdout.write("".join(output for _, output in results))
    sys.exit(any(code for code, _ in results))


if __name__ == "__main__":
    main()
