"""What the scripts that drive real hosts share: a failed check, single precision, WAV
files read and written directly (no audio library needed), and a private JACK server."""

import os
import struct
import subprocess
import time


class Failure(Exception):
    pass


def check(condition, message):
    if not condition:
        raise Failure(message)


def float32(value):
    return struct.unpack("<f", struct.pack("<f", value))[0]


def wav_chunks(path):
    """The RIFF chunks of a WAV file by id (the headers differ by writer)."""
    with open(path, "rb") as file:
        data = file.read()
    check(data[:4] == b"RIFF" and data[8:12] == b"WAVE", path + " is not a WAV file")
    chunks, position = {}, 12
    while position + 8 <= len(data):
        identifier = data[position:position + 4]
        size = struct.unpack("<I", data[position + 4:position + 8])[0]
        chunks[identifier] = data[position + 8:position + 8 + size]
        position += 8 + size + (size & 1)
    check(b"fmt " in chunks and b"data" in chunks, path + " has no format or no data")
    return chunks


def float_samples(path):
    """The format tag, channels, rate and bits of a WAV file, and its sample bytes."""
    chunks = wav_chunks(path)
    tag, channels, rate, _, _, bits = struct.unpack("<HHIIHH", chunks[b"fmt "][:16])
    return (tag, channels, rate, bits), chunks[b"data"]


def channel_samples(path):
    """The channels of a 32-bit float or 32-bit integer WAV file as lists of numbers in
    -1..1."""
    (tag, channels, _, bits), data = float_samples(path)
    check(bits == 32 and tag in (1, 3), "%s: %d-bit samples of format %d" % (path, bits, tag))
    values = struct.unpack("<%d%s" % (len(data) // 4, "f" if tag == 3 else "i"), data)
    if tag == 1:
        values = [value / 2147483648.0 for value in values]
    return [list(values[channel::channels]) for channel in range(channels)]


def write_float_wav(path, rate, channels):
    """A 32-bit float WAV file of the channels (lists of samples of one length)."""
    frames = list(zip(*channels))
    raw = struct.pack("<%df" % (len(frames) * len(channels)),
                      *[sample for frame in frames for sample in frame])
    count = len(channels)
    fmt = struct.pack("<HHIIHH", 3, count, rate, rate * 4 * count, 4 * count, 32)
    body = b"WAVE" + b"fmt " + struct.pack("<I", len(fmt)) + fmt
    body += b"data" + struct.pack("<I", len(raw)) + raw
    with open(path, "wb") as file:
        file.write(b"RIFF" + struct.pack("<I", len(body)) + body)


def start_jack_server(name, env, log, period=256, synchronous=False):
    """jackd with the dummy driver (no sound card) under a private name, which clients find
    through JACK_DEFAULT_SERVER in env; ready when jack_wait sees it. A synchronous server
    waits for every client in each cycle, so a loaded test machine cannot make a client
    miss one."""
    server = subprocess.Popen(["jackd", "-n", name] + (["-S"] if synchronous else []) +
                              ["-d", "dummy", "-r", "48000", "-p", str(period)],
                              env=env, stdout=log, stderr=log)
    deadline = time.monotonic() + 10.0
    while time.monotonic() < deadline:
        probe = subprocess.run(["jack_wait", "-c"], env=env, capture_output=True, text=True)
        if probe.stdout.strip() == "running":
            return server
        time.sleep(0.2)
    server.kill()
    raise Failure("the JACK server %s did not start" % name)


def stop(processes):
    """Terminates the processes, last started first."""
    for process in reversed(processes):
        process.terminate()
        try:
            process.wait(timeout=10)
        except subprocess.TimeoutExpired:
            process.kill()
