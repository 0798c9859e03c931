"""From what was computed to what is shipped: level, fade, 16 bits."""

import math
import wave

import numpy as np

import loudness
from physics import RATE

FULL_SCALE = 32768


def finished(sound):
    """The samples of a sound as they are stored. The same on every run."""
    # Its streams are promised to stay as they are, whichever numpy draws them.
    random = np.random.RandomState(sound.seed)
    stereo = _without_offset(_faded(_without_rumble(sound.make(random)), sound.fade))
    stereo *= 10 ** ((sound.loudness - loudness.momentary(stereo)) / 20)
    return _dithered(stereo, random)


def _without_rumble(stereo, cutoff=50):
    """What no loudspeaker on a desk plays, and would only push its cone."""
    keep = math.exp(-2 * math.pi * cutoff / RATE)
    for channel in stereo.T:
        for _ in range(2):
            slow = 0.0
            for index, value in enumerate(channel.tolist()):
                slow = (1 - keep) * value + keep * slow
                channel[index] = value - slow
    return stereo


def _faded(stereo, seconds):
    count = round(seconds * RATE)
    curve = np.cos(np.linspace(0, np.pi / 2, count)) ** 2
    stereo[-count:] *= curve[:, None]
    return stereo


def _without_offset(stereo):
    """A constant taken off would leave a step at either end; a hill leaves none."""
    hill = np.sin(np.linspace(0, np.pi, len(stereo))) ** 2
    return stereo - hill[:, None] / hill.mean() * stereo.mean(axis=0)


def _dithered(stereo, random):
    noise = random.uniform(-0.5, 0.5, (2, *stereo.shape)).sum(axis=0)
    stored = np.round(stereo * FULL_SCALE + noise)
    stored[[0, -1]] = 0
    if np.abs(stored).max() >= FULL_SCALE:
        raise ValueError("louder than full scale")
    return stored.astype("<i2")


def write(path, samples):
    with wave.open(str(path), "wb") as file:
        file.setnchannels(2)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(samples.tobytes())


def read(path):
    """Samples between -1 and 1, a column for each channel."""
    with wave.open(str(path), "rb") as file:
        frames = file.readframes(file.getnframes())
    return np.frombuffer(frames, "<i2").reshape(-1, 2) / FULL_SCALE
