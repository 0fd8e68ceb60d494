#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Holds the boundary's layouts against each other: as MSVC lays it out and as g++
does. Slots of every interface, offsets of every data member and sizes of every record must agree.

usage: compare_layouts.py CLANG SOURCE_DIR
"""
import re
import subprocess
import sys

TARGETS = {"windows": "x86_64-pc-windows-msvc", "linux": "x86_64-pc-linux-gnu"}
INTERFACES = ["IOmbrixSdk", "ISdkConfiguration", "ISerialLink", "ICamera", "ILogger"]
RECORDS = ["Temperatures", "OperatingTime", "EdgeCorrection", "Zoom", "ZoomResolution",
           "AhcGainsLimitation", "ReplacementEntry", "ISdkConfiguration", "SDKLogger"]


def dump(clang, source_dir, target):
    command = [clang, f"--target={target}", "-std=c++20", "-nostdinc",
               "-isystem", f"{source_dir}/tests/abi/stub", "-I", source_dir, "-S", "-emit-llvm",
               "-o", "/dev/null", "-Xclang", "-fdump-vtable-layouts", "-Xclang",
               "-fdump-record-layouts", f"{source_dir}/tests/abi/layouts.cpp"]
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def slots(text, interface):
    """The functions of an interface in slot order."""
    pattern = r"^(?:VFTable|Vtable) for '[^\n]*%s[^\n]*\n((?: +\d+ \| [^\n]*\n|       [^\n]*\n)+)"
    for block in re.findall(pattern % interface, text, re.M):
        entries = re.findall(r"^ +\d+ \| (.*)$", block, re.M)
        functions = [entry.replace(" [pure]", "") for entry in entries if "(" in entry
                     and not entry.startswith("offset_to_top")]
        if functions:
            return functions
    return []


def members(text, record):
    """Offsets of a record's members and its size."""
    block = re.search(r"^ +0 \| (?:struct|class) ombrix_sdk::%s\n((?:[^\n]*\n)*?[^\n]*sizeof=\d+)"
                      % record, text, re.M)
    if not block:
        return []
    lines = re.findall(r"^ +(\d+) \|   (.*)$", block.group(1), re.M)
    fields = [(offset, field) for offset, field in lines if "vftable" not in field
              and "vtable" not in field]
    size = re.search(r"sizeof=(\d+)", block.group(1)).group(1)
    return fields + [("size", size)]


def main():
    clang, source_dir = sys.argv[1:3]
    dumps = {name: dump(clang, source_dir, target) for name, target in TARGETS.items()}
    failures = 0
    for what, names, extract in (("slots", INTERFACES, slots), ("members", RECORDS, members)):
        for name in names:
            windows = extract(dumps["windows"], name)
            linux = extract(dumps["linux"], name)
            if not windows or windows != linux:
                failures += 1
                print(f"{what} of {name} differ:")
                for index in range(max(len(windows), len(linux))):
                    pair = [side[index] if index < len(side) else None for side in (windows, linux)]
                    if pair[0] != pair[1]:
                        print(f"  {index}: windows {pair[0]}\n  {index}: linux   {pair[1]}")
            else:
                print(f"{what} of {name} agree: {len(windows)}")
    sys.exit(1 if failures else 0)


if __name__ == "__main__":
    main()
