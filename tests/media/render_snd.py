#!/usr/bin/env python3
"""Renders the melodies of tests/data/media/melodies.txt to WAV bytes from the rules of the
format alone (single-precision lengths and periods, double-precision sine) and writes the table
again with each WAV's length and FNV-1a 64 digest, which snd_wave_test compares with the
renderer's output.

usage: tests/media/render_snd.py   (rewrites tests/data/media/melodies.txt in place)
"""
import math
import os
import struct

RATE = 22050
TABLE = os.path.join(os.path.dirname(__file__), "..", "data", "media", "melodies.txt")


def f32(x):
    return struct.unpack("<f", struct.pack("<f", x))[0]


def tables():
    periods = []
    for s in range(12):
        freq = f32(2.0 ** ((s + 1) / 12) * 55.0)
        periods.append(int(f32(f32(RATE) / freq)))
    waves = [[int(math.sin(6.283185307 * j / p) * 127.5 + 128.0) for j in range(p)]
             for p in periods]
    return periods, waves


def note(periods, waves, n, c, t):
    step, s = 2 ** (n // 12), n % 12
    h, l = c >> 4, (c & 15) or 16
    tone, rest = f32(t * h * l / 256), f32((4 - h) * t * l / 256)
    tone_samples = int(f32(tone * RATE))
    last = int(f32(f32(tone + rest) * RATE)) - 1
    out, pos, state = bytearray(), 0, 0 if tone_samples else 2
    for i in range(last + 1):
        out.append(0x80 if state == 2 else waves[s][pos])
        pos += step
        if pos >= periods[s]:
            pos -= periods[s]
            if state == 1:
                state = 2
        if i >= tone_samples and state == 0:
            state = 1
    return out


def wav(snd):
    periods, waves = tables()
    data = bytearray()
    pairs = snd[4:]
    for i in range(0, len(pairs), 2):
        if pairs[i] == 0xFF and pairs[i + 1] == 0xFF:
            break
        data += note(periods, waves, pairs[i], pairs[i + 1], snd[2])
    fmt = b"WAVE" + b"fmt " + struct.pack("<IHHIIHH", 16, 1, 1, RATE, RATE, 1, 8) + b"data"
    return b"RIFF" + struct.pack("<I", 36 + len(data)) + fmt + struct.pack("<I", len(data)) + data


def fnv1a64(data):
    h = 0xCBF29CE484222325
    for b in data:
        h = ((h ^ b) * 0x100000001B3) & 0xFFFFFFFFFFFFFFFF
    return h


lines = []
with open(TABLE) as table:
    for line in table.read().splitlines():
        if not line or line.startswith("#"):
            lines.append(line)
            continue
        name, hexbytes = line.split("\t")[:2]
        out = wav(bytes.fromhex(hexbytes))
        lines.append(f"{name}\t{hexbytes}\t{len(out)}\t{fnv1a64(out):016x}")
with open(TABLE, "w") as table:
    table.write("\n".join(lines) + "\n")
