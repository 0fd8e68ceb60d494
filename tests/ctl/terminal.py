# SPDX-License-Identifier: MIT
"""Runs a program with some of its streams on a terminal of its own, as a person has it.

usage: terminal.py STREAMS TYPED PROGRAM [WORD...]
  STREAMS  digits: 0 input, 1 output, 2 errors; the other streams are the ones given to this script
  TYPED    a line that waits at the terminal before the program starts; ^C: the program gets Ctrl-C
           when it has asked its question

What the program writes to the terminal goes to the standard errors, for its output may go elsewhere.
"""
import os
import pty
import signal
import subprocess
import sys
import tty

streams, typed, command = sys.argv[1], sys.argv[2], sys.argv[3:]
master, slave = pty.openpty()
tty.setraw(slave)  # otherwise ends of line are written as two characters, and what is typed as well
interrupts = typed == "^C"
if not interrupts:
    os.write(master, typed.encode() + b"\n")
with subprocess.Popen(command, stdin=slave if "0" in streams else None,
                      stdout=slave if "1" in streams else None,
                      stderr=slave if "2" in streams else None) as program:
    os.close(slave)
    seen = b""
    try:
        while piece := os.read(master, 4096):
            os.write(2, piece)
            seen += piece
            if interrupts and b"[y/N]" in seen:
                interrupts = False
                program.send_signal(signal.SIGINT)
    except OSError:
        pass  # the program has closed its end
sys.exit(program.returncode)
