#!/usr/bin/env python3
"""Runs `zephyra live` on a private JACK server with the dummy driver (no sound card),
with JACK's own example clients around it: jack_metro plays a tone into the plug-in and
jack_rec records the tone and the plug-in's output in the same cycles.

Cases:
  missing_server  no server: a clear error saying how to start one, exit status 1
  render          the output on the ports is what `zephyra render` makes of the same input,
                  and the run reports its frames and no xrun
  editor          the editor opens during the run (under the X server of the test run) and
                  a drag of band 1's gain knob changes the sound

usage: live_host.py CASE --cli zephyra --module Zephyra.so
"""

import argparse
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "support"))
from hostcheck import (Failure, channel_samples, check, start_jack_server, stop,  # noqa: E402
                       write_float_wav)

RATE = 48000
PROGRAM = "1"  # Vocal Presence: band 1 a peak at 3 kHz
TONE = "3000"  # Hz: where band 1 acts
METRO = "metro:300_bpm"
# Panel coordinates (editor/PanelGeometry.h): band 1's gain knob spans x 172..206 at
# y 54..88; pressed at its left edge and turned over its top to its right.
KNOB_DRAG = ((172, 71), (189, 54), (206, 71))
# What the recording may differ by: jack_rec writes 32-bit integers.
RECORDING_PRECISION = 1e-6
THIRD_PARTY = "/usr/lib/vst/ZamEQ2-vst.so"


class World:
    """A private home and JACK server for one case, and the processes started in it."""

    def __init__(self, options, server=True, period=1024):
        self.options = options
        self.folder = tempfile.mkdtemp(prefix="zephyra-live-")
        self.env = dict(os.environ, HOME=self.folder,
                        XDG_CONFIG_HOME=os.path.join(self.folder, ".config"),
                        JACK_DEFAULT_SERVER="zephyra-live-%d" % os.getpid(),
                        JACK_NO_AUDIO_RESERVATION="1")
        self.log = open(os.path.join(self.folder, "clients.log"), "w")
        self.processes = []
        if server:
            self.processes.append(start_jack_server(self.env["JACK_DEFAULT_SERVER"], self.env,
                                                    self.log, period, synchronous=True))

    def path(self, name):
        return os.path.join(self.folder, name)

    def start(self, command, **options):
        process = subprocess.Popen(command, env=self.env, stderr=self.log, **options)
        self.processes.append(process)
        return process

    def run(self, *command):
        return subprocess.run(command, env=self.env, capture_output=True, text=True, timeout=60)

    def live(self, *arguments, module=None, client="Zephyra"):
        """zephyra live, once it reports that it runs."""
        process = self.start([self.options.cli, "--plugin", module or self.options.module,
                              "live"] + list(arguments), stdout=subprocess.PIPE, text=True)
        line = process.stdout.readline()
        check("running as JACK client %s " % client in line, "zephyra live said %r" % line)
        return process

    def metronome(self):
        """jack_metro: beeps of the tone, a tenth of a second five times a second, on
        METRO."""
        self.start(["jack_metro", "-n", "metro", "-b", "300", "-f", TONE, "-A", "0.5", "-D",
                    "100"], stdout=self.log)
        time.sleep(0.5)

    def record(self, seconds, *ports):
        """jack_rec in the background: a 32-bit WAV file of the ports."""
        path = self.path("recording-%d.wav" % len(self.processes))
        process = self.start(["jack_rec", "-f", path, "-d", str(seconds), "-b", "32"] +
                             list(ports), stdout=self.log)
        return process, path

    def connect(self, source, *targets):
        for target in targets:
            done = self.run("jack_connect", source, target)
            check(done.returncode == 0, "jack_connect %s %s: %s" % (source, target, done.stderr))

    def close(self):
        stop(self.processes)
        self.log.close()
        shutil.rmtree(self.folder, ignore_errors=True)

    def log_tail(self):
        self.log.flush()
        return open(self.path("clients.log")).read()[-3000:]


def finish_live(process):
    """Ends zephyra live as Ctrl-C does and returns its report."""
    process.send_signal(signal.SIGINT)
    report, _ = process.communicate(timeout=20)
    check(process.returncode == 0, "zephyra live ended with %d:\n%s" % (process.returncode, report))
    values = dict(re.findall(r"^(frames processed|xruns|peak callback load): ([\d.]+)", report,
                             re.MULTILINE))
    check(len(values) == 3, "no report at the end:\n" + report)
    return values


def wait_for_file(process, path):
    process.wait(timeout=30)
    check(os.path.exists(path), "jack_rec wrote nothing")


def case_missing_server(world):
    done = world.run(world.options.cli, "--plugin", world.options.module, "live", "--no-editor",
                     "--seconds", "1")
    check(done.returncode == 1, "exit status %d without a server" % done.returncode)
    check("jackd -d dummy" in done.stderr and "PipeWire" in done.stderr,
          "the error does not say how to start a server:\n" + done.stderr)


def case_render(world):
    live = world.live("--program", PROGRAM, "--no-editor", "--seconds", "30")
    world.metronome()
    recorder, recording = world.record(2, METRO, "Zephyra:out_l", "Zephyra:out_r")
    time.sleep(0.3)  # the plug-in hears the tone only from here on, the recording has begun
    world.connect(METRO, "Zephyra:in_l", "Zephyra:in_r")
    wait_for_file(recorder, recording)
    report = finish_live(live)
    check(int(report["frames processed"]) > RATE, "frames processed: " + report["frames processed"])
    check(report["xruns"] == "0", "xruns: " + report["xruns"])

    tone, left, right = channel_samples(recording)
    # Each input heard silence until it was connected (one after the other): until the
    # first sound of its output.
    played = []
    for output in (left, right):
        heard = next((i for i, sample in enumerate(output) if sample), None)
        check(heard is not None and heard > 0, "an output is silent or never was")
        played.append([0.0] * heard + tone[heard:])
    write_float_wav(world.path("input.wav"), RATE, played)
    rendered = world.run(world.options.cli, "--plugin", world.options.module, "render",
                         world.path("input.wav"), world.path("expected.wav"),
                         "--program", PROGRAM)
    check(rendered.returncode == 0, "render failed:\n" + rendered.stderr)
    expected_left, expected_right = channel_samples(world.path("expected.wav"))
    check(max(abs(s) for s in expected_left) > 0.1, "the rendered tone is too quiet to compare")
    for got, expected, side in ((left, expected_left, "left"), (right, expected_right, "right")):
        worst = max(abs(g - e) for g, e in zip(got, expected))
        check(worst <= RECORDING_PRECISION,
              "the %s output differs from the render by up to %g" % (side, worst))


def level(samples):
    return max(abs(sample) for sample in samples)


def case_editor(world):
    if not os.environ.get("DISPLAY"):
        print("no X display: run under xvfb-run")
        return
    live = world.live("--program", PROGRAM, "--seconds", "30")
    world.metronome()
    world.connect(METRO, "Zephyra:in_l", "Zephyra:in_r")
    window = ""
    deadline = time.monotonic() + 10
    while not window and time.monotonic() < deadline:
        window = world.run("xdotool", "search", "--name", "^Zephyra$").stdout.split()
        time.sleep(0.2)
    check(window, "the editor's window did not come")
    recorder, recording = world.record(3, "Zephyra:out_l")
    time.sleep(1.2)
    (x0, y0), (x1, y1), (x2, y2) = KNOB_DRAG
    at = ["mousemove", "--window", window[0]]
    done = world.run("xdotool", *at, str(x0), str(y0), "mousedown", "1", "sleep", "0.1", *at,
                     str(x1), str(y1), "sleep", "0.1", *at, str(x2), str(y2), "sleep", "0.1",
                     "mouseup", "1")
    check(done.returncode == 0, "xdotool: " + done.stderr)
    wait_for_file(recorder, recording)
    finish_live(live)
    (out,) = channel_samples(recording)
    before, after = level(out[:RATE]), level(out[-RATE:])
    check(before > 0.05, "no sound before the drag")
    check(after > 1.5 * before, "the drag did not raise band 1: %g before, %g after" % (
        before, after))


def case_buffer_size(world):
    """The server's buffer size grows from 256 to 1024 frames while the plug-in runs: it is
    set up anew for the larger blocks (blocks longer than it was set up for would be
    silence) and keeps playing."""
    live = world.live("--program", PROGRAM, "--no-editor", "--seconds", "30")
    world.metronome()
    world.connect(METRO, "Zephyra:in_l", "Zephyra:in_r")
    changed = world.run("jack_bufsize", "1024")
    check(changed.returncode == 0, "jack_bufsize: " + changed.stderr)
    time.sleep(0.5)
    recorder, recording = world.record(1, "Zephyra:out_l")
    wait_for_file(recorder, recording)
    finish_live(live)
    (out,) = channel_samples(recording)
    check(level(out) > 0.1, "silence after the buffer size changed")


def case_third_party(world):
    """A plug-in of another maker (zam-plugins' equaliser, mono in and out) plays too."""
    if not os.path.exists(THIRD_PARTY):
        print(THIRD_PARTY + " is not installed (Debian package zam-plugins)")
        return
    live = world.live("--no-editor", "--seconds", "30", module=THIRD_PARTY,
                      client="ZamEQ2-vst")
    world.metronome()
    world.connect(METRO, "ZamEQ2-vst:in_l", "ZamEQ2-vst:in_r")
    recorder, recording = world.record(1, "ZamEQ2-vst:out_l", "ZamEQ2-vst:out_r")
    wait_for_file(recorder, recording)
    report = finish_live(live)
    check(int(report["frames processed"]) > 0, "no frames processed")
    left, right = channel_samples(recording)
    check(level(left) > 0.1 and left == right, "the mono plug-in's sound is not on both sides")


CASES = {"missing_server": case_missing_server, "render": case_render, "editor": case_editor,
         "buffer_size": case_buffer_size, "third_party": case_third_party}


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("case", choices=sorted(CASES))
    parser.add_argument("--cli", required=True)
    parser.add_argument("--module", required=True)
    options = parser.parse_args()
    world = World(options, server=options.case != "missing_server",
                  period=256 if options.case == "buffer_size" else 1024)
    try:
        CASES[options.case](world)
    except (Failure, subprocess.TimeoutExpired) as failure:
        print("FAIL:", failure)
        print(world.log_tail())
        return 1
    finally:
        world.close()
    print("ok")
    return 0


if __name__ == "__main__":
    sys.exit(main())
