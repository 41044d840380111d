#!/usr/bin/env python3
"""zephyra.exe under wine against the Linux build of zephyra, with the same fixture plug-in
built for each system.

Cases:
  render  the same input and settings give the same WAV samples, bit for bit, and the same
          description of the plug-in; 16 and 24-bit integer input is read at full scale 1
  errors  a missing or non-audio input, a file that is no plug-in, an output format it does
          not write: exit status 1, one line on stderr, and the output that was there
          before is left alone

usage: windows_render.py CASE --wine W --windows-cli zephyra.exe --windows-plugin F.dll
                              --linux-cli zephyra --linux-plugin F.so
"""

import argparse
import json
import math
import os
import struct
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "support"))
from hostcheck import Failure, check, float32, float_samples, write_float_wav  # noqa: E402

SETTINGS = ["--set", "Gain=+6", "--set", "Mode=HIGH", "--block", "100"]


def run(command, folder):
    return subprocess.run(command, cwd=folder, capture_output=True, text=True, timeout=120)


def render_case(arguments, folder):
    # An odd length (a short last block), a full-scale tone and values near the smallest
    # normal float, where a gain computed differently would show first.
    frames = 4801
    write_float_wav(os.path.join(folder, "in.wav"), 44100, [
        [float32(math.sin(0.05 * i)) for i in range(frames)],
        [float32(1e-37 * (i % 7 - 3)) for i in range(frames)]])
    outputs = {}
    for system, cli, plugin in (("linux", [arguments.linux_cli], arguments.linux_plugin),
                                ("windows", [arguments.wine, arguments.windows_cli],
                                 arguments.windows_plugin)):
        result = run(cli + ["--plugin", plugin, "render", "in.wav", system + ".wav"] + SETTINGS,
                     folder)
        check(result.returncode == 0, "%s render failed: %s" % (system, result.stderr))
        info = run(cli + ["--plugin", plugin, "info", "--json"] + SETTINGS[:4], folder)
        check(info.returncode == 0, "%s info failed: %s" % (system, info.stderr))
        description = json.loads(info.stdout)
        description.pop("path", None)
        outputs[system] = (float_samples(os.path.join(folder, system + ".wav")), description)
    (linux_format, linux_data), linux_info = outputs["linux"]
    (windows_format, windows_data), windows_info = outputs["windows"]
    check(linux_format == windows_format, "formats %s and %s" % (linux_format, windows_format))
    check(len(linux_data) == len(windows_data) and len(linux_data) > frames * 8,
          "lengths %d and %d" % (len(linux_data), len(windows_data)))
    differing = sum(a != b for a, b in zip(linux_data, windows_data))
    check(differing == 0, "%d bytes of the samples differ" % differing)
    check(linux_info == windows_info, "descriptions differ:\n%s\n%s" % (linux_info, windows_info))

    # The fixture at its defaults passes samples through, so the floats written are the
    # integers read, scaled.
    for bits in (16, 24):
        values = [-(1 << (bits - 1)), -1, 0, 1, (1 << (bits - 1)) - 1]
        write_integer_wav(os.path.join(folder, "int.wav"), bits, values)
        result = run([arguments.wine, arguments.windows_cli, "--plugin", arguments.windows_plugin,
                      "render", "int.wav", "int-out.wav", "--tail", "0"], folder)
        check(result.returncode == 0, "%d-bit render failed: %s" % (bits, result.stderr))
        (_, data) = float_samples(os.path.join(folder, "int-out.wav"))
        left = struct.unpack("<%df" % (len(data) // 4), data)[0::2]
        check(list(left) == [v / float(1 << (bits - 1)) for v in values],
              "%d-bit samples read as %s" % (bits, left))


def write_integer_wav(path, bits, values):
    """A stereo PCM WAV file with the values on both channels."""
    size = bits // 8
    raw = b"".join(v.to_bytes(size, "little", signed=True) * 2 for v in values)
    fmt = struct.pack("<HHIIHH", 1, 2, 48000, 48000 * 2 * size, 2 * size, bits)
    body = b"WAVE" + b"fmt " + struct.pack("<I", len(fmt)) + fmt
    body += b"data" + struct.pack("<I", len(raw)) + raw
    with open(path, "wb") as file:
        file.write(b"RIFF" + struct.pack("<I", len(body)) + body)


def errors_case(arguments, folder):
    cli = [arguments.wine, arguments.windows_cli]
    with open(os.path.join(folder, "out.wav"), "wb") as existing:
        existing.write(b"kept")
    with open(os.path.join(folder, "notes.txt"), "w") as notes:
        notes.write("not a plug-in")
    write_float_wav(os.path.join(folder, "in.wav"), 48000, [[0.0] * 10, [0.0] * 10])
    for command, message in (
            (["--plugin", arguments.windows_plugin, "render", "absent.wav", "out.wav"],
             "cannot read absent.wav"),
            (["--plugin", arguments.windows_plugin, "render", "notes.txt", "out.wav"],
             "notes.txt is not an audio file"),
            (["--plugin", "notes.txt", "render", "in.wav", "out.wav"],
             "is not a VST 2.4 plug-in"),
            (["--plugin", arguments.windows_plugin, "render", "in.wav", "out.flac"],
             "cannot tell an audio format")):
        result = run(cli + command, folder)
        lines = result.stderr.strip().splitlines()
        check(result.returncode == 1 and len(lines) == 1 and message in lines[0],
              "%s: status %d, stderr %r" % (command, result.returncode, result.stderr))
        with open(os.path.join(folder, "out.wav"), "rb") as kept:
            check(kept.read() == b"kept", "%s: the earlier output changed" % command)
        check(sorted(os.listdir(folder)) == ["in.wav", "notes.txt", "out.wav"],
              "%s left %s" % (command, os.listdir(folder)))


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("case", choices=["render", "errors"])
    for option in ("--wine", "--windows-cli", "--windows-plugin", "--linux-cli",
                   "--linux-plugin"):
        parser.add_argument(option, required=True)
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        try:
            {"render": render_case, "errors": errors_case}[arguments.case](arguments, folder)
        except Failure as failure:
            print("FAIL: %s" % failure)
            return 1
    print("ok")
    return 0


if __name__ == "__main__":
    sys.exit(main())
