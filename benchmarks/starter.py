# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs a program and tells what it took, as JSON: starter.py FD WATCH PROGRAM ARGUMENT...

A process begins with the peak memory of the one that started it. Hence this one, which is small and forks; whoever measures may
have read anything. With WATCH 1 it counts the files that the program has open, every 20 ms.
"""
import json
import os
import sys
import time


def most_files(pid):
    """Until the process has ended, which stays to be waited for."""
    most = 0
    while os.waitid(os.P_PID, pid, os.WEXITED | os.WNOHANG | os.WNOWAIT) is None:
        try:
            most = max(most, len(os.listdir(f"/proc/{pid}/fd")))
        except OSError:
            pass
        time.sleep(0.02)
    return most


def main():
    told, watched, command = int(sys.argv[1]), sys.argv[2] == "1", sys.argv[3:]
    os.set_inheritable(told, False)
    began = time.monotonic()
    pid = os.posix_spawnp(command[0], command, os.environ)
    files = most_files(pid) if watched else 0
    _, status, usage = os.wait4(pid, 0)
    figures = {"wall": time.monotonic() - began, "user": usage.ru_utime, "system": usage.ru_stime,
               "memory": usage.ru_maxrss / 1024, "files": files, "status": os.waitstatus_to_exitcode(status)}
    os.write(told, json.dumps(figures).encode())


if __name__ == "__main__":
    main()
