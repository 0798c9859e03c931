"""Things that are struck: modes, plates, and the short force that sets them ringing."""

import math
from dataclasses import dataclass, replace

import numpy as np

RATE = 48_000

# How much narrower a body gets when it is stretched: of steel and, near enough, of wood.
POISSON = 0.3


@dataclass(frozen=True)
class Mode:
    """One way in which a body rings."""

    frequency: float
    """Hz"""
    decay: float
    """Seconds until it is 60 dB down."""
    gain: float
    pan: float = 0.0
    """From -1, left, to 1, right."""


@dataclass(frozen=True)
class Damping:
    """What a body loses: a part that is the same for every mode, and one that grows with the square
    of its frequency, as inner friction does."""

    decay: float
    """Seconds until a very low mode is 60 dB down."""
    corner: float
    """Hz where a mode rings half as long."""

    def at(self, frequency):
        return self.decay / (1 + (frequency / self.corner) ** 2)


@dataclass(frozen=True)
class Plate:
    """A thin rectangular plate on its edges, by Kirchhoff; metres, pascal, kilograms. Wood is stiff
    along the grain and soft across it."""

    width: float
    height: float
    thickness: float
    density: float
    stiffness: float
    stiffness_across: float

    def frequency(self, m, n):
        along, across = m / self.width, n / self.height
        stiffness = (self.stiffness * along**4 + self.stiffness_across * across**4
                     + 2 * math.sqrt(self.stiffness * self.stiffness_across)
                     * (along * across) ** 2)
        return math.pi / 2 * self.thickness * math.sqrt(
            stiffness / (12 * (1 - POISSON**2) * self.density))

    def modes(self, struck_at, damping, highest, spread=0.0):
        """Its modes up to `highest` Hz as they sound when it is struck at a place given as parts of
        its sides. What moves the air is the volume a mode displaces: modes whose halves swing
        against each other are weak, and those lean to one side by `spread`."""
        found = []
        for m in range(1, 12):
            for n in range(1, 12):
                frequency = self.frequency(m, n)
                if frequency > highest:
                    continue
                moved = (math.sin(m * math.pi * struck_at[0])
                         * math.sin(n * math.pi * struck_at[1]))
                cancels = 1.0 if m % 2 and n % 2 else 0.45
                lean = 0.0 if m % 2 else spread * (1 if m % 4 else -1)
                found.append(Mode(frequency, damping.at(frequency),
                                  moved * cancels * frequency / (m * n) / 1000, lean))
        return found


def louder(modes, factor):
    return [replace(mode, gain=mode.gain * factor) for mode in modes]


def contact(seconds, softness=1.5):
    """The force of one touch, of impulse 1. Hard bodies press as Hertz found, with 1.5; felt gives
    way first and presses late and smoothly, with 2 and more."""
    count = max(3, round(seconds * RATE))
    force = np.sin(math.pi * np.arange(count + 1) / count) ** softness
    return force / force.sum()


def bouncing(force, *touches):
    """A force that acts several times, each at (seconds, strength)."""
    length = max(round(at * RATE) for at, _ in touches) + len(force)
    total = np.zeros(length)
    for at, strength in touches:
        begin = round(at * RATE)
        total[begin:begin + len(force)] += strength * force
    return total


def roughness(random, rise, fall, low, high):
    """Two surfaces that grate while they meet: noise between two frequencies, swelling for `rise`
    seconds and dying with the time constant `fall`."""
    count = round((rise + 8 * fall) * RATE)
    noise = random.uniform(-1, 1, count)
    noise = _smoothed(_smoothed(noise, high), high)
    noise = noise - _smoothed(noise, low)
    time = np.arange(count) / RATE
    return noise * (1 - np.exp(-time / rise)) * np.exp(-time / fall)


def _smoothed(signal, cutoff):
    keep = math.exp(-2 * math.pi * cutoff / RATE)
    state, out = 0.0, np.empty(len(signal))
    for index, value in enumerate(signal.tolist()):
        state = (1 - keep) * value + keep * state
        out[index] = state
    return out


def ring(modes, force, seconds):
    """What two ears hear of the modes set going by the force."""
    count = round(seconds * RATE)
    time = np.arange(count) / RATE
    heard = np.zeros((count, 2))
    for mode in modes:
        response = (np.exp(-math.log(1000) / mode.decay * time)
                    * np.sin(2 * math.pi * mode.frequency * time))
        wave = mode.gain * np.convolve(response, force)[:count]
        heard += placed(wave, mode.pan)
    return heard


def placed(wave, pan):
    """One channel as two, of equal power together wherever it is put."""
    angle = (1 + pan) * math.pi / 4
    return np.stack((wave * math.cos(angle), wave * math.sin(angle)), axis=1)


def mixed(seconds, *parts):
    """Parts of any length, each with the second it begins at."""
    total = np.zeros((round(seconds * RATE), 2))
    for at, part in parts:
        begin = round(at * RATE)
        part = part[:len(total) - begin]
        total[begin:begin + len(part)] += part
    return total
