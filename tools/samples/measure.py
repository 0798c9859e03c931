#!/usr/bin/python3
"""Measures the interface sounds and prints a table.

  tools/samples/measure.py [FOLDER]      data/Sounds unless another one is named

What the columns mean stands in docs/sounds.md, which ends with this table.
"""

import sys

import numpy as np

import finish
import loudness
from make import SHIPPED
from physics import RATE
from sounds import SOUNDS

BANDS = (("below 400 Hz", 40, 400), ("400 to 2000", 400, 2000), ("above 2000", 2000, 20000))
COLUMNS = ("sound", "length", "peak", "loudness", "offset", "centroid 0–8 ms", "8–40 ms", "later",
           *(f"decay {name}" for name, _, _ in BANDS))


def offset(stereo):
    return np.abs(stereo.mean(axis=0)).max()


def centroid(mono, begin, end):
    """Hz; nothing where there is as good as no sound."""
    part = mono[round(begin * RATE):round(end * RATE)]
    if np.sqrt((part**2).mean()) < 3e-4:
        return None
    # Fades at its end alone: the attack is what matters.
    part = part * np.cos(np.linspace(0, np.pi / 2, len(part))) ** 2
    power = np.abs(np.fft.rfft(part)) ** 2
    return (power * np.fft.rfftfreq(len(part), 1 / RATE)).sum() / power.sum()


def band(mono, low, high):
    spectrum = np.fft.rfft(mono, 2 * len(mono))
    frequency = np.fft.rfftfreq(2 * len(mono), 1 / RATE)
    spectrum[(frequency < low) | (frequency >= high)] = 0
    return np.fft.irfft(spectrum)[:len(mono)]


def decay(mono, low, high):
    """Seconds; nothing for a band that is 45 dB weaker than the whole from the start."""
    width = round(0.003 * RATE)
    power = np.convolve(band(mono, low, high) ** 2, np.ones(width) / width, "same")
    whole = np.convolve(mono**2, np.ones(width) / width, "same").max()
    if power.max() < whole * 10**-4.5:
        return None
    return (np.flatnonzero(power > power.max() * 1e-3)[-1] - power.argmax()) / RATE


def figure(value, text):
    return "–" if value is None else text.format(value)


def row(name, stereo):
    mono = stereo.mean(axis=1)
    length = len(mono) / RATE
    cells = [name, f"{1000 * length:.0f} ms", f"{loudness.true_peak(stereo):.1f} dBFS",
             f"{loudness.momentary(stereo):.1f} LKFS", f"{offset(stereo):.0e}"]
    cells += [figure(centroid(mono, *span), "{:.0f} Hz")
              for span in ((0, 0.008), (0.008, 0.040), (0.040, length))]
    cells += [figure(decay(mono, low, high), "{:.3f} s") for _, low, high in BANDS]
    return cells


def line(cells):
    return f"| {' | '.join(cells)} |"


def main():
    folder = sys.argv[1] if len(sys.argv) > 1 else SHIPPED
    print(line(COLUMNS))
    print("|---" * len(COLUMNS) + "|")
    for sound in SOUNDS:
        print(line(row(sound.name, finish.read(f"{folder}/{sound.name}.wav"))))


if __name__ == "__main__":
    main()
