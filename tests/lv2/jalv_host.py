#!/usr/bin/env python3
"""Runs the LV2 edition in jalv (GTK 3, the panel embedded as an X11 user interface) on a
private JACK server with the dummy driver, under the X server of the test run: a user drags
band 1's gain knob and saves the program with the panel's save dialog; the default bank
file then holds the dragged value. Private HOME, XDG folders and LV2_PATH.

usage: jalv_host.py --bundle Zephyra.lv2
"""

import argparse
import os
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "support"))
from hostcheck import Failure, check, start_jack_server, stop  # noqa: E402

# Panel coordinates (editor/PanelGeometry.h): band 1's gain knob spans x 172..206 at
# y 54..88; a press on its left edge sets 0.2 of its range. The save button's centre.
KNOB_LEFT_EDGE = (172, 71)
SAVE_BUTTON = (286, 19)
PANEL_SIZE = "456x210"
GAIN1 = 4
BANK_CHUNK = 160
RECORD = 72


def wait_for(what, probe, seconds=20.0):
    deadline = time.monotonic() + seconds
    while time.monotonic() < deadline:
        found = probe()
        if found:
            return found
        time.sleep(0.2)
    raise Failure("timed out waiting for " + what)


def panel_window():
    """The panel's own window: the innermost unnamed window of the panel's size."""
    tree = subprocess.run(["xwininfo", "-root", "-tree"], capture_output=True, text=True).stdout
    found = re.findall(r"(0x[0-9a-f]+) \(has no name\): \(\)\s+" + PANEL_SIZE, tree)
    return found[-1] if found else None


def xdotool(*arguments):
    subprocess.run(["xdotool"] + [str(a) for a in arguments], check=True, timeout=20)
    time.sleep(0.5)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--bundle", required=True)
    args = parser.parse_args()
    if not os.environ.get("DISPLAY"):
        print("no X display: run under xvfb-run")
        return 1
    folder = tempfile.mkdtemp(prefix="zephyra-jalv-")
    server = "zephyra-test-%d" % os.getpid()
    processes = []
    try:
        bundles = os.path.join(folder, "lv2")
        os.mkdir(bundles)
        shutil.copytree(args.bundle, os.path.join(bundles, "Zephyra.lv2"))
        config = os.path.join(folder, ".config")
        env = dict(os.environ, HOME=folder, XDG_CONFIG_HOME=config, LV2_PATH=bundles,
                   JACK_DEFAULT_SERVER=server, JACK_NO_AUDIO_RESERVATION="1")
        log = open(os.path.join(folder, "hosts.log"), "w")
        processes.append(start_jack_server(server, env, log))
        processes.append(subprocess.Popen(["jalv.gtk3", "urn:zephyra:equalizer"], env=env,
                                          stdout=log, stderr=log))
        panel = wait_for("the panel's window", panel_window)
        time.sleep(1.0)

        x, y = KNOB_LEFT_EDGE
        xdotool("mousemove", "--window", panel, x, y, "mousedown", "1")
        xdotool("mouseup", "1")
        x, y = SAVE_BUTTON
        xdotool("mousemove", "--window", panel, x, y, "click", "1")
        save = wait_for("the save dialog", lambda: subprocess.run(
            ["xdotool", "search", "--name", "^Save"], capture_output=True,
            text=True).stdout.split())
        xdotool("windowfocus", "--sync", save[0], "key", "Return")

        bank_file = os.path.join(config, "ZephyraDef.fxb")
        wait_for("the default bank file", lambda: os.path.exists(bank_file), 10.0)
        time.sleep(0.5)
        data = open(bank_file, "rb").read()
        check(len(data) == BANK_CHUNK + 64 * RECORD, "bank file of %d bytes" % len(data))
        gain1 = struct.unpack_from("<f", data, BANK_CHUNK + 4 * GAIN1)[0]
        check(abs(gain1 - 0.2) < 0.02, "program 1's gain is %r, not the dragged 0.2" % gain1)
        for process in processes[1:]:
            check(process.poll() is None, "jalv exited early")
    except Failure as failure:
        print("FAIL:", failure)
        log.flush()
        print(open(os.path.join(folder, "hosts.log")).read()[-3000:])
        return 1
    finally:
        stop(processes)
        shutil.rmtree(folder, ignore_errors=True)
    print("ok")
    return 0


if __name__ == "__main__":
    sys.exit(main())
