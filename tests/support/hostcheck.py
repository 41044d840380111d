"""What the scripts that drive real hosts share: a failed check, and single precision."""

import struct


class Failure(Exception):
    pass


def check(condition, message):
    if not condition:
        raise Failure(message)


def float32(value):
    return struct.unpack("<f", struct.pack("<f", value))[0]
