#!/usr/bin/env python3
"""Runs clang-tidy over src and lang, as a build with clang that compiles several files in one piece sees them.

    scripts/tidy.py BUILD

A header is read once for all the files of a piece, which makes it twice as fast as file by file; most of the rest went
into headers of libraries, so the targets of MERGED are looked at in one piece each, with their files that are compiled
alone for another compiler's sake (ADDED). The analyzer takes the files of a piece for code, not for headers, only if the
piece is named "UnifiedSource". Two checks make no sense then: a piece includes .cpp files, and using declarations are
looked at in the main file only. tests/structure has both.

The analyzer follows calls within our own code, not into templates and the standard library, which took three quarters
of its time. It then sees leaks where Qt's parents delete, so that check is off; leaks are left to the sanitizers, and
reach only what tests run. It gives up a function behind 50000 states instead of 225000.
"""

import json
import os
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor

ANALYZER = "c++-stdlib-inlining=false,c++-template-inlining=false,max-nodes=50000"
OPTIONS = [
    "--quiet",
    "--warnings-as-errors=*",
    "--checks=-bugprone-suspicious-include,-misc-unused-using-decls,-clang-analyzer-cplusplus.NewDeleteLeaks",
    *(f"--extra-arg={word}" for word in ("-Xclang", "-analyzer-config", "-Xclang", ANALYZER)),
    r"--header-filter=/(src|lang)/.*\.(h|cpp)$",
    "--extra-arg=-Wno-unknown-warning-option",
]
MERGED = {"core", "platform", "simulator", "ui", "ui_kit"}
ADDED = {"platform/PortWatchLinux.cpp": "platform", "simulator/world/WorldFile.cpp": "simulator"}


def is_ours(path, source):
    inside = os.path.relpath(path, source)
    return "/Unity/" in path and "/tests/" not in path or inside.startswith(("src/", "lang/"))


def append(path, text):
    with open(path, "a", encoding="utf-8") as file:
        file.write(text)


def pieces(build, source, folder):
    """The build's commands, with every piece under a name that the analyzer knows. The longest first."""
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        commands = [entry for entry in json.load(file) if is_ours(entry["file"], source)]
    kept = {}
    for entry in commands:
        path = entry["file"]
        named = path
        if "/Unity/" in path:
            target = os.path.basename(os.path.dirname(os.path.dirname(path))).removesuffix(".dir")
            name = target if target in MERGED else f"{target}-{os.path.basename(path)}"
            named = os.path.join(folder, f"UnifiedSource-{name}.cxx")
            with open(path, encoding="utf-8") as piece:
                append(named, piece.read())
        elif target := ADDED.get(os.path.relpath(path, os.path.join(source, "src"))):
            append(os.path.join(folder, f"UnifiedSource-{target}.cxx"), f'#include "{path}"\n')
            continue
        kept[named] = {**entry, "command": entry["command"].replace(path, named), "file": named}
    return sorted(kept.values(), key=lambda entry: (entry["file"].startswith(folder),
                                                        os.path.getsize(entry["file"])), reverse=True)


def tidy(folder, config, path):
    run = subprocess.run(["clang-tidy", "-p", folder, "--config-file", config, *OPTIONS, path], capture_output=True,
                         text=True, check=False)
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
            config = os.path.join(source, ".clang-tidy")  # not found from where the pieces lie
            results = list(pool.map(lambda entry: tidy(folder, config, entry["file"]), commands))
    sys.stdout.write("".join(output for _, output in results))
    sys.exit(any(code for code, _ in results))


if __name__ == "__main__":
    main()
