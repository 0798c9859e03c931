#!/usr/bin/python3
"""Draws waveform and spectrogram of every interface sound into one picture. Needs matplotlib.

  tools/samples/picture.py [FILE [FOLDER]]      docs/images/sounds.png, from data/Sounds
"""

import sys

import matplotlib
import numpy as np
from matplotlib.colors import LinearSegmentedColormap
from matplotlib.ticker import FixedLocator, NullLocator

import finish
from make import SHIPPED
from physics import RATE
from sounds import SOUNDS

PICTURE = SHIPPED.parents[1] / "docs" / "images" / "sounds.png"
PANEL, WELL, INK, DIM, AMBER = "#191817", "#100f0e", "#d8d2c8", "#7d766c", "#f0a63c"
GLOW = LinearSegmentedColormap.from_list(
    "glow", [WELL, "#2a1f17", "#6b3f16", "#c97a22", AMBER, "#ffedc9"])
RANGE = 66  # dB shown
TICKS = {100: "100", 300: "300", 1000: "1 k", 3000: "3 k", 10000: "10 k"}


def spectrogram(mono):
    """Times, frequencies and dB below the loudest, on a logarithmic scale of frequency. Windows are
    longer for low frequencies than for high ones, as the ear's are."""
    hop = max(8, len(mono) // 900)
    frequencies = np.geomspace(50, 16000, 220)
    padded = np.pad(mono, 4096)
    starts = np.arange(0, len(mono), hop)
    longest = min(0.060, len(mono) / RATE / 4)
    waves = 9 if len(mono) < RATE else 26
    rows = []
    for frequency in frequencies:
        size = int(np.clip(waves / frequency, 0.0022, longest) * RATE) | 1
        window = np.hanning(size)
        kernel = window / window.sum() * np.exp(
            -2j * np.pi * frequency / RATE * (np.arange(size) - size // 2))
        index = starts[:, None] + 4096 - size // 2 + np.arange(size)
        rows.append(np.abs(padded[index] @ kernel))
    level = 20 * np.log10(np.maximum(rows, 1e-9))
    return starts / RATE * 1000, frequencies, level - level.max()


def prepare(axes):
    axes.set_facecolor(WELL)
    axes.tick_params(colors=DIM, labelsize=8, length=2, width=0.6)
    for spine in axes.spines.values():
        spine.set_color("#2c2a27")
        spine.set_linewidth(0.6)


def draw_wave(axes, name, mono):
    prepare(axes)
    milliseconds = np.arange(len(mono)) / RATE * 1000
    axes.plot(milliseconds, mono / np.abs(mono).max(), color=AMBER, linewidth=0.5)
    axes.set_xlim(0, milliseconds[-1])
    axes.set_ylim(-1.15, 1.15)
    axes.xaxis.set_major_locator(NullLocator())
    axes.yaxis.set_major_locator(NullLocator())
    axes.set_title(name, color=INK, fontsize=11, loc="left", pad=7)


def draw_spectrogram(axes, mono, is_first):
    prepare(axes)
    axes.pcolormesh(*spectrogram(mono), cmap=GLOW, vmin=-RANGE, vmax=0, shading="nearest",
                    rasterized=True)
    axes.set_yscale("log")
    axes.set_xlim(0, len(mono) / RATE * 1000)
    axes.yaxis.set_major_locator(FixedLocator(list(TICKS)))
    axes.yaxis.set_minor_locator(NullLocator())
    axes.set_yticklabels(TICKS.values() if is_first else [])
    axes.set_xlabel("ms", color=DIM, fontsize=8)
    if is_first:
        axes.set_ylabel("Hz", color=DIM, fontsize=8)


def main():
    matplotlib.use("Agg")
    from matplotlib import pyplot
    matplotlib.rcParams["font.family"] = ["Inter", "DejaVu Sans"]
    file = sys.argv[1] if len(sys.argv) > 1 else PICTURE
    folder = sys.argv[2] if len(sys.argv) > 2 else SHIPPED
    figure, axes = pyplot.subplots(
        2, len(SOUNDS), figsize=(13.5, 5.0), facecolor=PANEL,
        gridspec_kw={"height_ratios": (1, 3), "width_ratios": (1, 1, 1, 1.7, 1.25),
                     "hspace": 0.06, "wspace": 0.09,
                     "left": 0.05, "right": 0.985, "top": 0.92, "bottom": 0.1})
    for column, sound in enumerate(SOUNDS):
        mono = finish.read(f"{folder}/{sound.name}.wav").mean(axis=1)
        draw_wave(axes[0][column], sound.name, mono)
        draw_spectrogram(axes[1][column], mono, column == 0)
    figure.savefig(file, dpi=140, facecolor=PANEL, metadata={"Software": None})


if __name__ == "__main__":
    main()
