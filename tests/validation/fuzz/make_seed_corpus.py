#!/usr/bin/env python3
"""Writes the seed inputs of the fuzz targets into corpus/<target>/seed-*.

Each seed is a small, deliberate case in the layout its target reads: a well-formed one
to start the fuzzer from, and the hostile shapes a host or a damaged file may produce.
Inputs the fuzzers found on their own sit beside them under their hash names; running
this script again rewrites only the seeds. To fold a longer fuzzing run into the stored
corpus, keeping only inputs that reach new code, from a ZEPHYRA_FUZZ build:

    fuzz_<target> -merge=1 -use_counters=0 corpus/<target> <folder of the run's inputs>
"""
import math
import pathlib
import struct

HERE = pathlib.Path(__file__).resolve().parent
UNIQUE_ID = b"VeEQ"

# Normalised defaults of the eleven parameters (on/off, output, input, type 1, gain 1,
# freq 1, Q 1, type 2, gain 2, freq 2, Q 2) and a program with every band moved.
DEFAULTS = [1.0, 0.49975, 1.0, 0.0, 0.5, 0.049049, 0.072165, 1.0, 0.5, 0.049049, 0.072165]
SHAPED = [1.0, 0.6, 0.8, 0.5, 0.9, 0.3, 0.5, 0.0, 0.2, 0.01, 1.0]
HOSTILE = [math.nan, math.inf, -math.inf, -1.0, 2.0, 3.4e38, -0.0, 1e-45, 0.74, 0.75, math.nan]


def record(values, name):
    return struct.pack("<11f", *values) + name.encode("latin-1")[:27].ljust(28, b"\0")


def bank(values=DEFAULTS, current=0, names=None):
    records = [record(values, (names or {}).get(i, "Empty")) for i in range(64)]
    image = bytearray(b"".join(records))
    image[68:72] = struct.pack("<i", current)
    return bytes(image)


def bank_file(chunk, magic=b"FBCh", unique_id=UNIQUE_ID, chunk_size=None):
    size = len(chunk) if chunk_size is None else chunk_size
    header = b"CcnK" + struct.pack(">I", 0) + magic + struct.pack(">I", 1) + unique_id
    header += struct.pack(">II", 1, 64) + bytes(128) + struct.pack(">I", size)
    return header + chunk


def chunk_case(mode, program, data):
    return bytes([mode, program]) + data


def legacy_case(program_files, list_text):
    data = bytes([len(program_files)])
    for content in program_files:
        encoded = content.encode("latin-1")
        data += struct.pack("<H", len(encoded)) + encoded
    return data + list_text.encode("latin-1")


def value_line(fields):
    return "\t".join(str(f) for f in fields)


def request(opcode, index=0, value=0, opt=0.0, extra=b""):
    return struct.pack("<biqf", opcode, index, value, opt) + extra


def text_request(opcode, text, index=0):
    encoded = text.encode("latin-1")
    return request(opcode, index) + bytes([len(encoded)]) + encoded


def parameter_step(way, index, value, process=False):
    choice = index if 0 <= index < 11 else 255
    data = bytes([way | (0x80 if process else 0), choice])
    if choice == 255:
        data += struct.pack("<i", index)
    return data + struct.pack("<f", value)


PROCESS_SINGLE, PROCESS_DOUBLE, SET_PARAMETER, GET_PARAMETER = 100, 101, 102, 103

# The editor events' layout: a kind byte (taken modulo 9), then what the kind reads.
# Points are two 16-bit values, each the coordinate plus the 24-pixel margin.
PRESS, RELEASE, MOVE, WHEEL, DOUBLE_CLICK, KEY, MODIFIERS, HOST = 0, 1, 2, 3, 4, 5, 6, 7
HOST_AUTOMATION, HOST_AUDIO, HOST_PROGRAM, HOST_CLOSE_EDITOR, HOST_IDLE = 0, 1, 2, 3, 4
KEY_RETURN, KEY_ESCAPE, KEY_DOWN = (36, 13), (53, 27), (125, 31)
SHIFT, CONTROL = 0x0200, 0x1000


def at(kind, x, y):
    return bytes([kind]) + struct.pack("<HH", x + 24, y + 24)


def click(x, y):
    return at(PRESS, x, y) + at(RELEASE, x, y)


def key(code_and_character):
    return bytes([KEY, *code_and_character])


def typed(text):
    return b"".join(key((0, ord(c))) for c in text)


def host(action, extra=b""):
    return bytes([HOST, action]) + extra


def seeds():
    shaped_bank = bank(SHAPED, current=5, names={0: "Vocal", 5: "Bright"})
    yield "chunk", "bank", chunk_case(0, 0, shaped_bank)
    yield "chunk", "program", chunk_case(1, 7, record(SHAPED, "One program"))
    yield "chunk", "hostile-values", chunk_case(0, 3, bank(HOSTILE, current=63))
    yield "chunk", "foreign-program-number", chunk_case(0, 2, bank(current=-1)[:200])
    yield "chunk", "longer-than-a-bank", chunk_case(0, 1, shaped_bank + bytes(500))
    yield "chunk", "short", chunk_case(1, 9, b"\x00\x00\x80\x3f\xff")
    yield "chunk", "claimed-empty", chunk_case(2, 4, record(DEFAULTS, "x"))
    yield "chunk", "claimed-negative", chunk_case(5, 4, shaped_bank[:100])

    yield "bank_file", "preferences", bytes([1]) + bank_file(shaped_bank)
    yield "bank_file", "both-folders", bytes([3]) + bank_file(bank(HOSTILE, current=2))
    yield "bank_file", "beside-plugin", bytes([2]) + bank_file(bank(current=30))
    yield "bank_file", "other-plugin", bytes([3]) + bank_file(shaped_bank, unique_id=b"Othr")
    yield "bank_file", "program-file", bytes([1]) + bank_file(record(SHAPED, "p"), magic=b"FPCh")
    yield "bank_file", "oversized-chunk", bytes([3]) + bank_file(shaped_bank, chunk_size=1 << 30)
    yield "bank_file", "truncated", bytes([2]) + bank_file(shaped_bank)[:2000]
    yield "bank_file", "magic-only", bytes([1]) + b"CcnK"
    yield "bank_file", "empty-chunk", bytes([3]) + bank_file(b"")

    header = "QMT5.0 EFFECT PRG FILE\n"
    peak = value_line(["x", 0, 1, 0, 393216, 65536000, 65536, 0, 0, 1, -393216, 524288000, 131072])
    shelf = value_line(["y", 1, 0, 0, -786432, 1310720, 19661])
    yield "legacy_import", "two-programs", legacy_case(
        [header + peak + "\n", shelf + "\n"],
        "QMT5.0 EFFECT PROGRAM LIST\n2\nPEAK\nSHELF\n")
    yield "legacy_import", "crlf-and-spaces", legacy_case(
        [header + value_line(["z", " 5", "", 1, 99999999999, -5, 0]) + "\r\n"],
        "QMT5.0 EFFECT PROGRAM LIST\r\n3\r\nA\r\nB\r\nC\r\n")
    yield "legacy_import", "more-than-64", legacy_case(
        [header + peak], "QMT5.0 EFFECT PROGRAM LIST\n70\n" + "".join(
            "P%d\n" % i for i in range(70)))
    yield "legacy_import", "long-names", legacy_case(
        [peak], "QMT5.0 EFFECT PROGRAM LIST\n2\n" + "N" * 100 + "\n" + "../../escape\n")
    yield "legacy_import", "count-zero", legacy_case([], "QMT5.0 EFFECT PROGRAM LIST\n0\n")
    yield "legacy_import", "wrong-header", legacy_case([], "QMT4 LIST\n1\nA\n")

    session = [request(0), request(10, opt=48000.0), request(11, value=512), request(12, value=1)]
    session += [request(PROCESS_SINGLE, value=512), request(SET_PARAMETER, 4, opt=0.8),
                request(PROCESS_DOUBLE, value=300), request(7, 4), request(23),
                request(2, value=9), request(24, extra=b"\x01"), request(24, 1, extra=b"\x00\x04\x00abcd"),
                text_request(4, "Renamed"), text_request(51, "bypass"), request(56, 5),
                request(12, value=0), request(1), request(PROCESS_SINGLE, value=64)]
    yield "dispatcher", "host-session", b"".join(session)
    hostile = [request(10, opt=math.nan), request(11, value=-1), request(43, value=-5, opt=-1.0),
               request(2, value=-1), request(2, value=1 << 40), request(6, -7), request(7, 1 << 20),
               request(29, 64), request(56, -1), request(42, 3, 77), request(69),
               request(11, value=1 << 30), request(PROCESS_SINGLE, value=-20),
               request(PROCESS_DOUBLE, value=2047), request(SET_PARAMETER, -1, opt=math.inf),
               request(GET_PARAMETER, 1 << 30), request(90), request(-3)]
    yield "dispatcher", "hostile-values", b"".join(hostile)
    every = [request(op, 1, 1, 1.0) for op in range(2, 80)] + [request(PROCESS_SINGLE, value=256)]
    yield "dispatcher", "every-opcode", b"".join(every)
    keys = [request(59, 65, 0x25, 9.4e21), request(60, 65, -1, -3.0e38), request(59, 13, 0, math.nan),
            request(60, 0, 1 << 40, math.inf), request(61, 0, -(1 << 40))]
    yield "dispatcher", "editor-keys", b"".join(keys)

    extremes = [math.nan, math.inf, -math.inf, -1.0, 2.0, 3.4e38, -0.0, 1e-45]
    steps = b""
    for index in range(11):
        for way in range(3):
            steps += parameter_step(way, index, extremes[(index + way) % len(extremes)],
                                    process=index % 4 == 0)
    yield "parameters", "extreme-floats", steps
    ordinary = b"".join(parameter_step(way, index, 0.5 + 0.04 * index, process=True)
                        for way in range(3) for index in range(11))
    yield "parameters", "ordinary-values", ordinary
    yield "parameters", "foreign-indices", b"".join(
        parameter_step(way, index, 0.3) for way in range(3) for index in (-1, 11, 1 << 30))

    drag = at(PRESS, 175, 160) + at(MOVE, 189, 130) + at(MOVE, 260, 160) + at(MOVE, -20, 230)
    yield "editor_events", "knob-and-slider-drags", drag + at(RELEASE, 205, 155) + (
        at(PRESS, 56, 60) + at(MOVE, 56, 170) + host(HOST_AUDIO, b"\x80") + at(RELEASE, 56, 170)
        + at(WHEEL, 330, 70) + b"\x01" + at(DOUBLE_CLICK, 260, 70))
    yield "editor_events", "copy-menu", click(73, 19) + key(KEY_DOWN) + key(KEY_DOWN) + key(
        KEY_RETURN) + click(73, 19) + click(300, 100)
    yield "editor_events", "save-dialog", click(286, 19) + key(KEY_DOWN) + key((48, 9)) + typed(
        "A name longer than any field takes") + key(KEY_RETURN) + click(286, 19) + key(KEY_ESCAPE)
    readouts = [(189, 99), (260, 99), (331, 99), (189, 183), (260, 183), (331, 183), (30, 192),
                (420, 192)]
    yield "editor_events", "hostile-values-then-readouts", b"".join(
        host(HOST_AUTOMATION, bytes([index]) + struct.pack("<f", value))
        + b"".join(click(x, y) + key(KEY_ESCAPE) for x, y in readouts)
        for index in range(11) for value in (math.nan, math.inf, -3.4e38))
    yield "editor_events", "menu-left-open", click(73, 19)
    yield "editor_events", "dialog-left-open", click(286, 19) + click(73, 19)
    yield "editor_events", "typed-values", click(331, 99) + typed("-3") + key(KEY_RETURN) + click(
        190, 183) + typed("1e39x!") + key(KEY_RETURN) + click(260, 183) + typed("99") + click(
        100, 150) + click(420, 192) + key(KEY_ESCAPE)
    yield "editor_events", "modified-clicks", bytes([MODIFIERS]) + struct.pack("<H", SHIFT) + click(
        30, 18) + bytes([MODIFIERS]) + struct.pack("<H", CONTROL) + click(30, 18) + click(232, 19)
    yield "editor_events", "host-meanwhile", host(HOST_AUTOMATION, bytes([4]) + struct.pack(
        "<f", math.nan)) + host(HOST_PROGRAM, bytes([70])) + host(HOST_CLOSE_EDITOR) + click(
        73, 19) + host(HOST_IDLE) + click(286, 19) + host(HOST_AUTOMATION, bytes([9]) + struct.pack(
        "<f", 2.0)) + host(HOST_AUDIO, bytes([255])) + key(KEY_ESCAPE)


def main():
    for target, name, data in seeds():
        folder = HERE / "corpus" / target
        folder.mkdir(parents=True, exist_ok=True)
        (folder / ("seed-" + name)).write_bytes(data)


if __name__ == "__main__":
    main()
