"""The same as benchmark_presets_share with Python's plistlib, json and base64."""

import base64
import json
import plistlib
import sys
import time


def share(path):
    with open(path, "rb") as file:
        preset = plistlib.load(file)
    return base64.b64encode(json.dumps(preset, indent=2).encode())


def import_text(text):
    return plistlib.dumps(json.loads(base64.b64decode(text, validate=True)))


def shortest(repetitions, work, *arguments):
    times = []
    for _ in range(repetitions):
        start = time.perf_counter()
        work(*arguments)
        times.append(time.perf_counter() - start)
    return min(times)


path, text_path, repetitions = sys.argv[1], sys.argv[2], int(sys.argv[3])
ours = [float(argument) for argument in sys.argv[4:6]]
with open(text_path, "rb") as file:
    text = file.read()
theirs = [
    shortest(repetitions, share, path),
    shortest(repetitions, import_text, text),
]
print(f"python share {theirs[0] * 1e3:.2f} ms, import {theirs[1] * 1e3:.2f} ms")
print(f"ratio  share {theirs[0] / ours[0]:.1f}, import {theirs[1] / ours[1]:.1f}")
