#!/usr/bin/env python3
"""Drives Ardour 7 headless against the built plug-in: its scanner, and its Lua session
runner with the Dummy backend. Each case runs with a private HOME and XDG folders and a
copy of the module; results come back through files, because luasession may abort at
exit after its work is done.

usage: ardour_host.py CASE --module Zephyra.so --cli zephyra --scanner PATH --luasession PATH
       --lv2-bundle Zephyra.lv2
"""

import argparse
import base64
import json
import math
import os
import random
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "support"))
from hostcheck import Failure, check, float32, float_samples  # noqa: E402

HERE = os.path.dirname(os.path.abspath(__file__))
RATE = 48000
BLOCK = 1024
FRAMES = RATE // 2
GAIN1 = 4
# How often a Lua script runs before an early abort fails the test (see Ardour.lua).
ATTEMPTS = 4

# What each control is set to, as the command-line host takes it (display values).
SETTINGS = {
    "ON/OFF": "ON", "Output": "0", "Input": "0",
    "Type1": "PEAK", "Gain1": "+3", "Freq1": "1000", "Q1": "2",
    "Type2": "PEAK", "Gain2": "+3", "Freq2": "1000", "Q2": "2",
}
# What the plug-in must then display.
DISPLAYS = {
    "ON/OFF": "ON", "Output": "0.0", "Input": "0.0",
    "Type1": "PEAK", "Gain1": "3.0", "Freq1": "1000.0", "Q1": "2.0",
    "Type2": "PEAK", "Gain2": "3.0", "Freq2": "1000.0", "Q2": "2.0",
}
PROGRAM = 3
# A factory program that hosts list as an LV2 preset, and its number in the bank.
LV2_PRESET_NAME = "Vocal Presence"
LV2_PRESET_PROGRAM = 1


def four_character_code(text):
    return struct.unpack(">i", text.encode("ascii"))[0]


def write_test_signal(folder):
    """Two sines under white noise: the same samples as a float WAV file for the
    command-line host and as raw floats for the Lua player."""
    generator = random.Random(12)
    samples = []
    for frame in range(FRAMES):
        for channel, frequency in enumerate((440.0, 3100.0)):
            tone = 0.3 * math.sin(2.0 * math.pi * frequency * frame / RATE)
            samples.append(float32(tone + 0.2 * (generator.random() - 0.5) + 0.01 * channel))
    raw = struct.pack("<%df" % len(samples), *samples)
    with open(os.path.join(folder, "signal.f32"), "wb") as file:
        file.write(raw)
    fmt = struct.pack("<HHIIHH", 3, 2, RATE, RATE * 8, 8, 32)
    body = b"WAVE" + b"fmt " + struct.pack("<I", len(fmt)) + fmt
    body += b"data" + struct.pack("<I", len(raw)) + raw
    with open(os.path.join(folder, "signal.wav"), "wb") as file:
        file.write(b"RIFF" + struct.pack("<I", len(body)) + body)


class Ardour:
    """One private Ardour world: home folders, a copy of the module, the scan."""

    def __init__(self, options, folder):
        self.options = options
        self.folder = folder
        home = os.path.join(folder, "home")
        self.config = os.path.join(home, ".config")
        self.cache = os.path.join(home, ".cache")
        self.vst = os.path.join(folder, "vst")
        os.makedirs(self.vst)
        self.module = os.path.join(self.vst, "Zephyra.so")
        shutil.copy(options.module, self.module)
        shutil.copy(os.path.join(os.path.dirname(options.module), "ZephyraDef.fxb"), self.vst)
        # Ardour ignores a cache entry older than its module, and the cache file's time is
        # cut to whole seconds: a module copied within the second of the scan would look
        # newer than its own scan.
        past = os.path.getmtime(self.module) - 60
        os.utime(self.module, (past, past))
        lib = os.path.dirname(options.luasession)
        edition = os.path.basename(lib)  # "ardour7"
        for subfolder, name in (("export", "FloatWav.preset"), ("scripts", "test_player.lua")):
            target = os.path.join(self.config, edition, subfolder)
            os.makedirs(target, exist_ok=True)
            shutil.copy(os.path.join(HERE, name), target)
        self.cache_folder = os.path.join(self.cache, edition, "vst")
        self.env = dict(os.environ)
        self.env.update({
            "HOME": home, "XDG_CONFIG_HOME": self.config, "XDG_CACHE_HOME": self.cache,
            "XDG_DATA_HOME": os.path.join(home, ".local", "share"),
            "LD_LIBRARY_PATH": lib, "ARDOUR_DLL_PATH": lib,
            "ARDOUR_DATA_PATH": os.path.join("/usr/share", edition),
            "ARDOUR_CONFIG_PATH": os.path.join("/etc", edition),
            "LXVST_PATH": self.vst, "VST_PATH": self.vst,
            "ZT_LUA_DIR": HERE, "ZT_BLOCK": str(BLOCK),
            "ZT_SIGNAL": os.path.join(folder, "signal.f32"),
            "ZT_SESSION_DIR": os.path.join(folder, "session"), "ZT_SESSION_NAME": "zephyra",
        })
        write_test_signal(folder)
        scan = self.run([options.scanner, "-q", "-f", self.module], self.env)
        check(scan.returncode == 0, "the scanner failed:\n" + scan.stdout.decode(errors="replace"))

    def use_lv2(self):
        """Puts a copy of the LV2 bundle alone on LV2_PATH and has the scripts use it."""
        bundles = os.path.join(self.folder, "lv2")
        shutil.copytree(self.options.lv2_bundle, os.path.join(bundles, "Zephyra.lv2"))
        self.env.update({"LV2_PATH": bundles, "ZT_PLUGIN_TYPE": "LV2"})

    def run(self, command, env):
        return subprocess.run(command, env=env, cwd=self.folder, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, timeout=120)

    def lua(self, script, new_session=True, **values):
        """Runs a Lua script in luasession and returns its result lines. A run whose
        results are complete counts even if luasession aborts afterwards; one that aborts
        before is tried again (from scratch, for a script that makes the session). Under
        load, Ardour 7.3's export aborts on a corrupted heap (glibc's "free(): invalid
        size") in up to one run of ten, with its own equaliser in our place too."""
        results = os.path.join(self.folder, script + ".results")
        env = dict(self.env)
        env.update({"ZT_" + key.upper(): str(value) for key, value in values.items()})
        env["ZT_RESULTS"] = results
        logs = []
        for attempt in range(1, ATTEMPTS + 1):
            if os.path.exists(results):
                os.remove(results)
            if new_session:
                shutil.rmtree(self.env["ZT_SESSION_DIR"], ignore_errors=True)
            if "out" in values:  # the export folder: no file of an earlier attempt
                shutil.rmtree(values["out"], ignore_errors=True)
                os.makedirs(values["out"])
            completed = self.run([self.options.luasession, os.path.join(HERE, script)], env)
            lines = []
            if os.path.exists(results):
                with open(results) as file:
                    lines = file.read().splitlines()
            if lines and lines[-1] == "done":
                return lines[:-1]
            logs.append("exit %d:\n%s" % (completed.returncode,
                                          completed.stdout.decode(errors="replace")))
            print("%s stopped before its results (exit %d), attempt %d"
                  % (script, completed.returncode, attempt))
        raise Failure("%s did not finish in %d runs:\n%s" % (script, ATTEMPTS, "\n".join(logs)))

    def export_folder(self, name):
        folder = os.path.join(self.folder, "export-" + name)
        os.makedirs(folder)
        return folder


def only_wav(folder):
    files = [name for name in os.listdir(folder) if name.endswith(".wav")]
    check(len(files) == 1, "one exported WAV file in %s, found %s" % (folder, files))
    return os.path.join(folder, files[0])


class Cli:
    """The command-line host, on the same copy of the module."""

    def __init__(self, ardour):
        self.ardour = ardour

    def run(self, *arguments):
        completed = subprocess.run([self.ardour.options.cli, "--plugin", self.ardour.module]
                                   + list(arguments), env=self.ardour.env,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=60)
        check(completed.returncode == 0, "zephyra %s: %s" % (" ".join(arguments),
                                                              completed.stderr.decode()))
        return completed.stdout.decode()

    def info(self, *arguments):
        return json.loads(self.run("info", "--json", *arguments))

    def render(self, output, *arguments):
        self.run("render", os.path.join(self.ardour.folder, "signal.wav"), output,
                 "--block", str(BLOCK), "--tail", "0", *arguments)
        return output


def settings_arguments(settings):
    arguments = []
    for name, value in settings.items():
        arguments += ["--set", "%s=%s" % (name, value)]
    return arguments


def values_text(values):
    return " ".join("%d=%.9g" % (index, value) for index, value in sorted(values.items()))


def parameter_values(info):
    return {parameter["index"]: parameter["value"] for parameter in info["parameters"]}


def reported(lines, tag):
    values = {}
    for line in lines:
        words = line.split()
        if words[0] == tag:
            values[int(words[1])] = float(words[2])
    return values


def same_float32(a, b):
    return float32(a) == float32(b)


def check_values(actual, expected, what):
    for index, value in expected.items():
        check(index in actual, "%s: parameter %d not reported" % (what, index))
        check(same_float32(actual[index], value),
              "%s: parameter %d holds %.9g, not %.9g" % (what, index, actual[index], value))


def check_same_audio(actual, expected, what):
    actual_format, actual_bytes = float_samples(actual)
    expected_format, expected_bytes = float_samples(expected)
    check(actual_format == expected_format,
          "%s: format %s, not %s" % (what, actual_format, expected_format))
    check(len(actual_bytes) == len(expected_bytes),
          "%s: %d bytes of samples, not %d" % (what, len(actual_bytes), len(expected_bytes)))
    if actual_bytes != expected_bytes:
        first = next(i for i in range(len(actual_bytes)) if actual_bytes[i] != expected_bytes[i])
        raise Failure("%s: samples differ from byte %d on" % (what, first))
    samples = struct.unpack("<%df" % (len(actual_bytes) // 4), actual_bytes)
    check(any(sample != 0.0 for sample in samples), what + ": silence")


def case_scan(ardour, cli):
    """The scan reports the plug-in's identity."""
    caches = [name for name in os.listdir(ardour.cache_folder) if name.endswith(".v2i")]
    check(len(caches) == 1, "one scan cache file, found %s" % caches)
    root = ElementTree.parse(os.path.join(ardour.cache_folder, caches[0])).getroot()
    check(root.get("binary") == ardour.module, "cache for " + str(root.get("binary")))
    infos = root.findall("VST2Info")
    check(len(infos) == 1, "one plug-in in the module")
    found = infos[0].attrib
    own = cli.info()
    expected = {
        "id": str(four_character_code("VeEQ")), "name": "Zephyra", "creator": own["vendor"],
        "category": "Effect", "n_inputs": "2", "n_outputs": "2", "n_midi_inputs": "0",
        "is_instrument": "0", "can_process_replace": "1", "has_editor": "1",
    }
    for key, value in expected.items():
        check(found.get(key) == value, "scan: %s is %r, not %r" % (key, found.get(key), value))


def case_parameters(ardour, cli):
    """Each control is a 0..1 control named after its parameter, and every value set
    through Ardour's API at the point that means the setting reaches the plug-in as it."""
    own = cli.info(*settings_arguments(SETTINGS))
    names = {parameter["index"]: parameter["name"] for parameter in own["parameters"]}
    targets = parameter_values(own)
    lines = ardour.lua("parameters.lua", targets=values_text(targets))
    controls = [line.split(None, 5) for line in lines if line.startswith("control ")]
    check(len(controls) == len(names), "Ardour shows %d controls" % len(controls))
    for _, index, lower, upper, toggled, label in controls:
        name = names[int(index)]
        check(label == name, "control %s is labelled %r, not %r" % (index, label, name))
        check((float(lower), float(upper)) == (0.0, 1.0),
              "%s ranges %s..%s in Ardour" % (name, lower, upper))
        check(toggled == "false", name + " is a toggle in Ardour")
    for tag in ("processor_param", "automation_control"):
        held = reported(lines, tag)
        check_values(held, targets, tag)
        # The plug-in's own display of what it holds.
        shown = cli.info(*[argument for index, value in held.items()
                           for argument in ("--set", "%s=%.9gn" % (names[index], value))])
        for parameter in shown["parameters"]:
            check(parameter["display"] == DISPLAYS[parameter["name"]],
                  "%s: %s shows %r" % (tag, parameter["name"], parameter["display"]))


def case_render(ardour, cli):
    """A track renders the signal bit for bit as the command-line host does."""
    targets = parameter_values(cli.info(*settings_arguments(SETTINGS)))
    folder = ardour.export_folder("render")
    ardour.lua("render.lua", targets=values_text(targets), out=folder)
    expected = cli.render(os.path.join(ardour.folder, "expected.wav"),
                          *settings_arguments(SETTINGS))
    check_same_audio(only_wav(folder), expected, "Ardour's render")


def saved_equaliser_chunk(session_file):
    for processor in ElementTree.parse(session_file).getroot().iter("Processor"):
        if processor.get("name") == "Zephyra":
            chunk = processor.find(".//chunk")
            check(chunk is not None, "the equaliser's chunk in " + session_file)
            return int(chunk.get("program")), base64.b64decode(chunk.text)
    raise Failure("no equaliser in " + session_file)


def check_bank_chunk(bank, program, values, what):
    records = [struct.unpack_from("<11f", bank, 72 * record) for record in range(64)]
    for number, record in enumerate(records):
        check(all(0.0 <= value <= 1.0 for value in record),
              "%s: program %d holds raw values %s" % (what, number, record))
    check_values(dict(enumerate(records[program])), values, what + " program %d" % program)
    check(struct.unpack_from("<i", bank, 68)[0] == program, what + ": current program")


def case_session(ardour, cli):
    """A session saved with a program selected and edited reopens, in a new process,
    with the same program and values and renders the same bits."""
    program = cli.info("--program", str(PROGRAM))
    edited = cli.info("--program", str(PROGRAM), "--set", "Gain1=+3")
    edit = {GAIN1: parameter_values(edited)[GAIN1]}
    check(edit[GAIN1] != parameter_values(program)[GAIN1], "the edit changes Gain1")
    saved_folder = ardour.export_folder("saved")
    saved = reported(ardour.lua("save_session.lua", program_name=program["programs"][PROGRAM],
                                program_values=values_text(parameter_values(program)),
                                edit=values_text(edit), out=saved_folder), "saved")
    expected_values = parameter_values(program)
    expected_values.update(edit)
    check_values(saved, expected_values, "after the edit")

    session_folder = ardour.env["ZT_SESSION_DIR"]
    chosen, bank = saved_equaliser_chunk(os.path.join(session_folder, "zephyra.ardour"))
    check(chosen == PROGRAM, "saved with program %d" % chosen)
    check_bank_chunk(bank, PROGRAM, expected_values, "saved chunk")

    reopened_folder = ardour.export_folder("reopened")
    reopened = reported(ardour.lua("reopen_session.lua", new_session=False,
                                   out=reopened_folder), "reopened")
    check_values(reopened, expected_values, "reopened")
    chosen, bank = saved_equaliser_chunk(os.path.join(session_folder, "reopened.ardour"))
    check(chosen == PROGRAM, "reopened with program %d" % chosen)
    check_bank_chunk(bank, PROGRAM, expected_values, "reopened chunk")

    expected = cli.render(os.path.join(ardour.folder, "expected.wav"),
                          "--program", str(PROGRAM), "--set", "Gain1=+3")
    check_same_audio(only_wav(saved_folder), expected, "the saved session's render")
    check_same_audio(only_wav(reopened_folder), expected, "the reopened session's render")


def saved_lv2_bank(session_folder):
    """The bank image in the LV2 state Ardour saved beside the session."""
    for root, _, files in os.walk(session_folder):
        for name in files:
            if name == "state.ttl":
                text = open(os.path.join(root, name)).read()
                found = re.search(r'"""([A-Za-z0-9+/=\s]+)"""\^\^xsd:base64Binary', text)
                if found:
                    return base64.b64decode("".join(found.group(1).split()))
    raise Failure("no saved LV2 state with a bank in " + session_folder)


def case_lv2_session(ardour, cli):
    """The LV2 edition: a factory preset and an edit of Gain1 in dB render the same bits
    as the VST program with the same edit, travel in the session's LV2 state, and come
    back with it in a new process."""
    ardour.use_lv2()
    saved_folder = ardour.export_folder("saved")
    saved = reported(ardour.lua("lv2_session.lua", preset=LV2_PRESET_NAME, gain1=6,
                                out=saved_folder), "saved")
    check(saved[GAIN1] == 6.0, "Gain1's port holds %r" % saved[GAIN1])
    expected_values = parameter_values(cli.info("--program", str(LV2_PRESET_PROGRAM),
                                                "--set", "Gain1=+6"))
    bank = saved_lv2_bank(ardour.env["ZT_SESSION_DIR"])
    check(len(bank) == 4608, "a bank of %d bytes" % len(bank))
    check_bank_chunk(bank, 0, expected_values, "the saved state's")

    reopened_folder = ardour.export_folder("reopened")
    reopened = reported(ardour.lua("reopen_session.lua", new_session=False,
                                   out=reopened_folder), "reopened")
    check_values(reopened, saved, "the reopened ports")
    expected = cli.render(os.path.join(ardour.folder, "expected.wav"),
                          "--program", str(LV2_PRESET_PROGRAM), "--set", "Gain1=+6")
    check_same_audio(only_wav(saved_folder), expected, "the LV2 session's render")
    check_same_audio(only_wav(reopened_folder), expected, "the reopened LV2 session's render")


def case_automation(ardour, cli):
    """An automation lane on Gain1 reaches the plug-in as drawn."""
    def gain(text):
        return parameter_values(cli.info("--set", "Gain1=" + text))[GAIN1]
    points = {0: gain("-9"), 8000: gain("+6"), 16000: gain("0")}
    probes = [0, 4000, 8000, 12000, 16000]
    lines = ardour.lua("automation.lua", automated=GAIN1, points=values_text(points),
                       probes=" ".join(map(str, probes)))
    at = {int(words[1]): (float(words[2]), float(words[3]))
          for words in (line.split() for line in lines) if words[0] == "at"}
    check(sorted(at) == probes, "probed %s" % sorted(at))
    for position, (drawn, held) in at.items():
        if position in points:
            check(same_float32(drawn, points[position]),
                  "the lane at %d is %.9g, not the drawn %.9g"
                  % (position, drawn, points[position]))
        check(same_float32(held, drawn),
              "at %d the plug-in holds %.9g, the lane %.9g" % (position, held, drawn))
    check(at[4000][1] != at[0][1] and at[12000][1] != at[8000][1], "the lane moves the plug-in")


CASES = {
    "scan": case_scan, "parameters": case_parameters, "render": case_render,
    "session": case_session, "automation": case_automation, "lv2_session": case_lv2_session,
}


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("case", choices=sorted(CASES))
    for option in ("module", "cli", "scanner", "luasession", "lv2-bundle"):
        parser.add_argument("--" + option, required=True)
    options = parser.parse_args()
    folder = tempfile.mkdtemp(prefix="zephyra-ardour-%s-" % options.case)
    try:
        ardour = Ardour(options, folder)
        CASES[options.case](ardour, Cli(ardour))
    except (Failure, subprocess.TimeoutExpired) as failure:
        print("FAILED: %s\n(files kept in %s)" % (failure, folder))
        return 1
    shutil.rmtree(folder)
    print("passed: " + CASES[options.case].__doc__.split("\n")[0])
    return 0


if __name__ == "__main__":
    sys.exit(main())
