"""The five sounds, each from the bodies that would make it."""

import math
from dataclasses import dataclass
from typing import Callable

from physics import (Damping, Mode, Plate, bouncing, contact, louder, mixed, placed, ring,
                     roughness)

STEEL = {"density": 7850, "stiffness": 200e9, "stiffness_across": 200e9}
SPRUCE = {"density": 430, "stiffness": 11e9, "stiffness_across": 0.9e9}


def key_down(random):
    """A key meets its stop on a steel plate that rubber damps; the housing answers with a thud."""
    seconds = 0.085
    plate = Plate(0.140, 0.088, 0.0015, **STEEL).modes(
        (0.37, 0.42), Damping(0.026, 3200), 9000, spread=0.12)
    cap = [Mode(2350, 0.013, 1.0, 0.03), Mode(2890, 0.011, -0.5), Mode(3420, 0.010, 0.9, -0.04),
           Mode(4180, 0.008, -0.45), Mode(4780, 0.007, 0.5), Mode(6100, 0.006, -0.3)]
    housing = [Mode(152, 0.070, 0.32), Mode(231, 0.054, 0.27, 0.03), Mode(388, 0.036, 0.20, -0.03)]
    stop = bouncing(contact(0.00030), (0, 1), (0.0064, 0.13))
    grating = roughness(random, 0.0001, 0.0012, 1500, 6500)
    return mixed(seconds,
                 (0, ring(louder(plate, 0.8), stop, seconds)),
                 (0, ring(cap, stop, seconds)),
                 (0, ring(housing, contact(0.0016, 2), seconds)),
                 (0, placed(grating, 0.0)))


def key_up(random):
    """The spring throws the key against its upper stop: less mass, a harder touch, little plate."""
    seconds = 0.055
    plate = Plate(0.140, 0.088, 0.0015, **STEEL).modes(
        (0.21, 0.30), Damping(0.015, 4500), 11000, spread=0.12)
    cap = [Mode(2900, 0.012, 1.0, -0.04), Mode(3480, 0.010, -0.6), Mode(4150, 0.009, 0.9, 0.05),
           Mode(5050, 0.007, -0.5), Mode(5900, 0.006, 0.6), Mode(7300, 0.005, -0.35)]
    housing = [Mode(268, 0.032, 0.20), Mode(590, 0.022, 0.18, 0.03)]
    stop = bouncing(contact(0.00022), (0, 1), (0.0036, 0.16))
    grating = roughness(random, 0.0001, 0.0008, 2500, 9000)
    return mixed(seconds,
                 (0, ring(louder(plate, 0.25), stop, seconds)),
                 (0, ring(cap, stop, seconds)),
                 (0, ring(housing, contact(0.0009, 2), seconds)),
                 (0, placed(0.8 * grating, 0.0)))


def mode_switch(random):
    """The leaf of a selector snaps over onto its contact and bounces once, then hardly again."""
    seconds = 0.055
    leaf = Plate(0.034, 0.013, 0.0003, **STEEL).modes(
        (0.62, 0.45), Damping(0.014, 6000), 15000, spread=0.08)
    spring = [Mode(1680, 0.017, 0.8, 0.05), Mode(2710, 0.013, -0.7, -0.05)]
    base = [Mode(345, 0.024, 0.20), Mode(760, 0.018, 0.3)]
    bounces = ((0, 1), (0.0088, 0.20), (0.0134, 0.05))
    grating = roughness(random, 0.00005, 0.0005, 3000, 10000)
    return mixed(seconds,
                 (0, ring(louder(leaf, 0.25), bouncing(contact(0.00015), *bounces), seconds)),
                 (0, ring(spring, bouncing(contact(0.00018), *bounces), seconds)),
                 (0, ring(base, bouncing(contact(0.0007, 2), *bounces), seconds)),
                 (0, placed(0.5 * grating, 0.0)),
                 (0.0088, placed(0.12 * grating, 0.0)))


# The wooden core of a mallet, felt through its cover.
CORE = contact(0.0005, 2)


def chime(_random):
    """Two small bells a fourth apart, struck one after the other with a soft mallet."""
    seconds = 2.2
    mallet = 0.7 * contact(0.0017, 2)
    mallet[:len(CORE)] += 0.3 * CORE
    first = ring(bell(440, 0.9, -0.10), mallet, seconds)
    second = ring(bell(440 * 4 / 3, 1.3, 0.10), mallet, seconds)
    return mixed(seconds, (0, first), (0.19, second))


# A small bell: (times the note, seconds to -60 dB at 440 Hz, loudness, beats per second). Hum and
# twelfth are tuned pure; above them the bell is as inharmonic as bells are.
BELL = (
    (0.500, 2.60, 0.08, 0.5),
    (1.000, 2.40, 1.00, 1.1),
    (2.010, 1.40, 0.14, 1.4),
    (3.000, 1.15, 0.31, 1.8),
    (5.020, 0.62, 0.17, 2.3),
    (5.870, 0.46, 0.12, 2.9),
    (7.240, 0.30, 0.10, 3.7),
    (9.310, 0.18, 0.07, 4.1),
)


def bell(note, gain, pan):
    """Every partial is a pair: a bell is never quite round. The two halves of a pair point to
    different sides, so the beat moves a little."""
    modes = []
    for times, decay, loudness, beat in BELL:
        frequency = times * note
        lasting = decay * math.sqrt(440 / note)
        level = gain * loudness
        modes.append(Mode(frequency - beat / 2, lasting, 0.80 * level, pan - 0.2))
        modes.append(Mode(frequency + beat / 2, 0.85 * lasting, 0.20 * level, pan + 0.2))
    return modes


def blocked(_random):
    """A knuckle in felt on a wooden board, twice."""
    seconds = 0.300
    board = Plate(0.40, 0.27, 0.010, **SPRUCE).modes(
        (0.41, 0.43), Damping(0.110, 420), 2000, spread=0.15)
    air = [Mode(124, 0.090, 0.07)]
    knock = ring(board + air, contact(0.0023, 2), seconds)
    softer = ring(board + air, contact(0.0029, 2), seconds)
    return mixed(seconds, (0, knock), (0.140, 0.66 * softer))


@dataclass(frozen=True)
class Sound:
    name: str
    make: Callable
    seed: int
    loudness: float
    """LKFS of its loudest 50 ms."""
    fade: float
    """Seconds it is faded out for at its end."""


KEY_DOWN_LOUDNESS = -22.0

SOUNDS = (
    Sound("key-down", key_down, 11, KEY_DOWN_LOUDNESS, 0.020),
    Sound("key-up", key_up, 12, KEY_DOWN_LOUDNESS - 4, 0.015),
    Sound("mode-switch", mode_switch, 13, KEY_DOWN_LOUDNESS - 3, 0.015),
    Sound("chime", chime, 14, KEY_DOWN_LOUDNESS, 0.400),
    Sound("blocked", blocked, 15, KEY_DOWN_LOUDNESS - 2, 0.050),
)
