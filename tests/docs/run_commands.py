#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs every command that the documents show, in their order, in a copy of the sources and without
a display; those for a second terminal while the tool runs on a virtual one. A command that no rule
below knows fails, so that none is shown unproved.

usage: run_commands.py SOURCE_DIR
"""
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile

DOCUMENTS = ["README.md", "CONTRIBUTING.md", "docs/user-guide.md", "docs/tavrelctl.md",
             "docs/architecture.md", "docs/sdk-boundary.md", "docs/quality.md"]

# How a command is run: what is appended to keep it short, or None for the commands that are not
# repeated here, because they run this very test.
RULES = [
    (r"\./run( --tour.*)?$", ""),
    (r"TAVREL_SIMULATOR_FACTORY_FRESH=1 \./run$", ""),
    (r"\./run --ctl .+$", ""),
    (r"\./run --simulator .+$", ""),
    (r"cp simulator/plans/\S+ build/session/plan\.ini$", ""),
    (r"rm build/session/plan\.ini$", ""),
    (r"cmake --preset \w+$", ""),
    (r"cmake --build --preset \w+$", " --target tavrel_ui"),
    (r"ctest --preset \w+$", " -R boundary_layouts"),
    (r"cmake --install build --prefix \S+$", ""),
    # These install packages that the tests do without.
    (r"(packaging/linux/build|packaging/linux/test|bench/run|tests/coverage/run)$", " --help"),
    (r"scripts/bare \w+$", " --help"),
    (r"tests/mutations/run$", " --check"),
    # A short run is a test of its own.
    (r"tests/kills/run$", " --help"),
    (r"\./test$", None),
]

# An installed program, and what stands for it in the sources.
INSTALLED = (r"^tavrelctl ", "./run --ctl ")

# Commands for a second terminal beside the running tool.
BESIDE_THE_TOOL = r"(cp simulator/plans/\S+|rm) ?build/session/plan\.ini$|\./run --simulator "


def commands(path):
    for block in re.findall(r"^ *```sh\n(.*?)^ *```", open(path, encoding="utf-8").read(),
                            re.M | re.S):
        for line in block.splitlines():
            command = line.split(" # ")[0].strip()
            if command:
                yield re.sub(*INSTALLED, command)


def copy(source, target):
    """Copies the sources, without what builds and sessions leave behind."""
    def left_out(folder, names):
        top = os.path.samefile(folder, source)
        return [name for name in names
                if name == ".git" or (top and name.startswith("build"))
                or (name in ("cache", "dist") and folder.endswith("packaging/windows"))]
    shutil.copytree(source, target, ignore=left_out, symlinks=True)


class RunningTool:
    """The tool as ./run starts it, on a virtual display."""

    def __init__(self, folder, environment):
        self.process = subprocess.Popen(["xvfb-run", "-a", "./run"], cwd=folder, env=environment,
                                        stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                        stderr=subprocess.STDOUT, text=True,
                                        start_new_session=True)
        for line in self.process.stdout:
            if line.startswith("Test log in debug"):
                return
        raise SystemExit("FAIL  ./run did not start the tool")

    def stop(self):
        if self.process.poll() is not None:
            raise SystemExit("FAIL  the tool did not keep running")
        os.killpg(self.process.pid, signal.SIGTERM)
        self.process.wait()


def main():
    source = sys.argv[1]
    environment = {name: value for name, value in os.environ.items() if name != "DISPLAY"}
    environment.pop("QT_QPA_PLATFORM", None)
    failures = 0
    done = set()
    tool = None
    with tempfile.TemporaryDirectory() as scratch:
        # Nothing may stumble over a blank.
        folder = os.path.join(scratch, "tavrel kv")
        copy(source, folder)
        for document in DOCUMENTS:
            for command in commands(os.path.join(source, document)):
                rule = next((rule for rule in RULES if re.match(rule[0], command)), None)
                if rule is None:
                    print(f"FAIL  {document}: no rule for: {command}")
                    failures += 1
                    continue
                # What tavrelctl changes, a command of the next page may want again.
                if rule[1] is None or (command in done and "--ctl" not in command):
                    continue
                done.add(command)
                # These presets build with Qt 5, which ./test does not install beside Qt 6.
                if "--preset" in command and environment.get("TAVREL_QT") == "6":
                    print(f"skip  {document}: {command}{rule[1]}", flush=True)
                    continue
                if re.match(BESIDE_THE_TOOL, command):
                    tool = tool or RunningTool(folder, environment)
                elif tool:
                    tool.stop()
                    tool = None
                result = subprocess.run(command + rule[1], shell=True, cwd=folder,
                                        env=environment, stdin=subprocess.DEVNULL,
                                        stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                                        text=True, errors="replace", check=False)
                good = result.returncode == 0
                print(f"{'ok  ' if good else 'FAIL'}  {document}: {command}{rule[1]}", flush=True)
                if not good:
                    print(result.stdout[-4000:])
                    failures += 1
        if tool:
            tool.stop()
    sys.exit(1 if failures else 0)


if __name__ == "__main__":
    main()
