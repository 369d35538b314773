#!/usr/bin/env python3
"""Compiles every header on its own, so that none leans on what its users happen to include first."""
import concurrent.futures
import os
import pathlib
import subprocess
import sys

TOP = pathlib.Path(__file__).resolve().parent.parent
COMPILER = sys.argv[1] if len(sys.argv) > 1 else "g++"
PACKAGES = ["freetype2", "harfbuzz", "fribidi", "tinyxml", "libpng", "libjpeg", "libvncserver", "pixman-1",
            "sigc++-2.0"]


def flags():
    wanted = [p for p in PACKAGES
              if subprocess.run(["pkg-config", "--exists", p], check=False).returncode == 0]
    return subprocess.run(["pkg-config", "--cflags", *wanted], check=True, capture_output=True,
                          text=True).stdout.split()


def compile_alone(header, extra):
    text = f'#include "{header}"\n'
    command = [COMPILER, "-std=c++17", "-fsyntax-only", "-x", "c++", f'-DZR_SOURCE_DIR="{TOP}"',
               f'-DZR_BINARY_DIR="{TOP}"', "-I", TOP / "include" / "pub",
               "-I", TOP / "src", "-I", TOP, "-I", TOP / "tests", "-I", TOP / "bench",
               "-I", TOP / "gallery", *extra, "-"]
    result = subprocess.run(command, input=text, text=True, capture_output=True, check=False)
    return header, result


def main():
    headers = sorted((TOP / "include" / "pub").iterdir())
    for folder in ("src", "workbench", "tests", "bench"):
        headers += sorted((TOP / folder).rglob("*.h"))
    extra = flags()
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for header, result in pool.map(lambda h: compile_alone(h, extra), headers):
            if result.returncode:
                failed += 1
                print(f"{header.relative_to(TOP)} does not compile alone:\n{result.stderr}")
    print(f"{len(headers) - failed} of {len(headers)} headers compile alone")
    return 1 if failed else 0


sys.exit(main())
