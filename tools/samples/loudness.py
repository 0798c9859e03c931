"""How loud and how high a sound is: ITU-R BS.1770 on the scale of a click."""

import numpy as np

from physics import RATE

# The gating blocks of BS.1770 last 400 ms, longer than a click. The ear's own short integration is
# nearer to this.
WINDOW = 0.050

# BS.1770-4, tables 1 and 2, at 48 kHz: the head as a sphere, then the low cut.
K_WEIGHTING = (
    ((1.53512485958697, -2.69169618940638, 1.19839281085285),
     (1.0, -1.69065929318241, 0.73248077421585)),
    ((1.0, -2.0, 1.0), (1.0, -1.99004745483398, 0.99007225036621)),
)


def _biquad(signal, numerator, denominator):
    b0, b1, b2 = numerator
    _, a1, a2 = denominator
    first = second = 0.0
    out = np.empty(len(signal))
    for index, value in enumerate(signal.tolist()):
        result = b0 * value + first
        first = b1 * value - a1 * result + second
        second = b2 * value - a2 * result
        out[index] = result
    return out


def k_weighted(signal):
    """One channel as BS.1770 weights it."""
    for numerator, denominator in K_WEIGHTING:
        signal = _biquad(signal, numerator, denominator)
    return signal


def momentary(stereo):
    """The loudest 50 ms in LKFS; what is shorter counts as if silence followed."""
    size = round(WINDOW * RATE)
    power = sum(k_weighted(channel) ** 2 for channel in stereo.T)
    total = np.concatenate(([0.0], np.cumsum(np.append(power, np.zeros(size)))))
    return -0.691 + 10 * np.log10((total[size:] - total[:-size]).max() / size)


def true_peak(stereo, factor=4):
    """The highest value in dBFS, between the samples too, by a windowed sinc."""
    reach = 24
    taps = np.arange(-reach * factor, reach * factor + 1) / factor
    kernel = np.sinc(taps) * np.kaiser(len(taps), 9.0)
    highest = 0.0
    for channel in stereo.T:
        sparse = np.zeros(len(channel) * factor)
        sparse[::factor] = channel
        highest = max(highest, np.abs(np.convolve(sparse, kernel)).max())
    return 20 * np.log10(highest)
