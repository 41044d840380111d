#!/usr/bin/env python3
"""Checks the built LV2 bundle with the LV2 tools: lv2_validate finds no error in its
description, the module exports only its two entry points, and lv2apply (which offers the
plug-in no features at all and runs it a frame at a time) renders the same samples as the
command-line host through the VST module. Each case runs with a private HOME.

usage: lv2_tools.py CASE --bundle Zephyra.lv2 --cli zephyra
"""

import argparse
import math
import os
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "support"))
from hostcheck import Failure, check, float32, float_samples  # noqa: E402

# The settings by port symbol for lv2apply and as the command-line host takes them.
SETTINGS = [("type1", "1", "Type1=PEAK"), ("gain1", "6", "Gain1=+6"),
            ("freq1", "2000", "Freq1=2000"), ("q1", "2", "Q1=2"), ("gain2", "-4.5", "Gain2=-4.5"),
            ("freq2", "5000", "Freq2=5000")]
# The levels' ports take dB as a typed value does: factor 2^(dB/6) of 0.001..max, in single
# precision. The command-line host finds a value by its display text instead, which for a
# level is another point of the 0.05 dB the text covers, so it is given the normalised value.
LEVELS = [("input", -3.0, "Input", 1.0), ("output", 2.0, "Output", 2.0)]


def typed_level(db, highest):
    lowest = float32(0.001)
    factor = min(max(float32(math.pow(2.0, db / 6.0)), lowest), highest)
    return float32(float32(factor - lowest) / float32(highest - lowest))


def run(command, env):
    result = subprocess.run(command, env=env, capture_output=True, text=True, timeout=120)
    check(result.returncode == 0,
          "%s failed (%d):\n%s%s" % (command[0], result.returncode, result.stdout, result.stderr))
    return result.stdout + result.stderr


def case_validate(args, env, folder):
    files = sorted(os.path.join(args.bundle, name) for name in os.listdir(args.bundle)
                   if name.endswith(".ttl"))
    output = run(["lv2_validate"] + files, env)
    check("Found 0 errors" in output, "lv2_validate reports errors:\n" + output)


def case_exports(args, env, folder):
    output = run(["nm", "-D", "--defined-only", os.path.join(args.bundle, "Zephyra.so")], env)
    symbols = [line.split()[-1] for line in output.splitlines() if line.strip()]
    check(sorted(symbols) == ["lv2_descriptor", "lv2ui_descriptor"],
          "the module exports %s" % symbols)


def case_render(args, env, folder):
    demo = os.path.join(folder, "demo.wav")
    run([args.cli, "render", "--demo", demo, "--tail", "0"], env)
    through_vst = os.path.join(folder, "vst.wav")
    sets, controls = [], []
    for symbol, value, setting in SETTINGS:
        sets += ["--set", setting]
        controls += ["-c", symbol, value]
    for symbol, db, name, highest in LEVELS:
        sets += ["--set", "%s=%.9gn" % (name, typed_level(db, highest))]
        controls += ["-c", symbol, str(db)]
    run([args.cli, "render", demo, through_vst, "--tail", "0"] + sets, env)
    through_lv2 = os.path.join(folder, "lv2.wav")
    run(["lv2apply", "-i", demo, "-o", through_lv2] + controls + ["urn:zephyra:equalizer"], env)
    expected, got = float_samples(through_vst)[1], float_samples(through_lv2)[1]
    check(len(expected) == len(got) and len(got) > 0, "lengths %d and %d" % (len(expected), len(got)))
    check(expected == got, "the LV2 render differs from the VST render")
    check(float_samples(demo)[1] != got, "the settings changed nothing")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("case", choices=["validate", "exports", "render"])
    parser.add_argument("--bundle", required=True)
    parser.add_argument("--cli", required=True)
    args = parser.parse_args()
    folder = tempfile.mkdtemp(prefix="zephyra-lv2-")
    try:
        # The bundle alone on the search path, and a home where no default bank file is.
        bundles = os.path.join(folder, "lv2")
        os.mkdir(bundles)
        shutil.copytree(args.bundle, os.path.join(bundles, "Zephyra.lv2"))
        args.bundle = os.path.join(bundles, "Zephyra.lv2")
        env = dict(os.environ, HOME=folder, XDG_CONFIG_HOME=os.path.join(folder, ".config"),
                   LV2_PATH=bundles)
        globals()["case_" + args.case](args, env, folder)
    except Failure as failure:
        print("FAIL:", failure)
        return 1
    finally:
        shutil.rmtree(folder, ignore_errors=True)
    print("ok")
    return 0


if __name__ == "__main__":
    sys.exit(main())
