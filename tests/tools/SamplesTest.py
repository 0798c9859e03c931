"""The shipped interface sounds: what their generator makes, and within the limits of each. Measured
here by other means than the generator's own: filters as curves over the whole spectrum, peaks by
padding it."""

import math
import subprocess
import tempfile
import unittest
import wave
from pathlib import Path

import numpy as np

ROOT = Path(__file__).resolve().parents[2]
SHIPPED = ROOT / "data" / "Sounds"
RATE = 48_000
LEAST = 1 / 32768

# name: shortest and longest in seconds, LKFS of the loudest 50 ms against key-down
TABLE = {
    "key-down": (0.060, 0.090, 0.0),
    "key-up": (0.040, 0.060, -4.0),
    "mode-switch": (0.040, 0.060, -3.0),
    "chime": (1.9, 2.3, 0.0),
    "blocked": (0.250, 0.350, -2.0),
}
KEY_DOWN_LOUDNESS = -22.0


def read(path):
    with wave.open(str(path), "rb") as file:
        return np.frombuffer(file.readframes(file.getnframes()), "<i2").reshape(
            -1, file.getnchannels())


def k_curve(frequency):
    """The weighting of BS.1770 from its analogue prototypes, by the bilinear transform."""
    s = 1j * np.tan(np.pi * np.minimum(frequency, 0.4999 * RATE) / RATE)
    corner, quality, gain = math.tan(math.pi * 1681.974450955533 / RATE), 0.7071752369554196, \
        10 ** (3.999843853973347 / 20)
    shelf = ((gain * s**2 + gain**0.4996667741545416 * corner / quality * s + corner**2)
             / (s**2 + corner / quality * s + corner**2))
    corner, quality = math.tan(math.pi * 38.13547087602444 / RATE), 0.5003270373238773
    return shelf * s**2 / (s**2 + corner / quality * s + corner**2) * (
        1 + corner / quality + corner**2)


def momentary(stereo, seconds=0.050):
    """LKFS of the loudest stretch of so many seconds."""
    size = round(seconds * RATE)
    padded = np.pad(stereo, ((size, 2 * RATE), (0, 0)))
    curve = k_curve(np.fft.rfftfreq(len(padded), 1 / RATE))
    weighted = np.fft.irfft(np.fft.rfft(padded, axis=0) * curve[:, None], len(padded), axis=0)
    power = np.add.accumulate((weighted**2).sum(axis=1))
    return -0.691 + 10 * math.log10((power[size:] - power[:-size]).max() / size)


def true_peak(stereo, factor=4):
    """dBFS, between the samples too."""
    padded = np.pad(stereo, ((512, 512), (0, 0)))
    spectrum = np.fft.rfft(padded, axis=0)
    dense = np.fft.irfft(spectrum, factor * len(padded), axis=0) * factor
    return 20 * math.log10(np.abs(dense).max())


def band_power(mono, low, high):
    """The power in a band over time, in stretches of 2 ms."""
    spectrum = np.fft.rfft(mono, 2 * len(mono))
    frequency = np.fft.rfftfreq(2 * len(mono), 1 / RATE)
    spectrum[(frequency < low) | (frequency >= high)] = 0
    part = np.fft.irfft(spectrum)[:len(mono) // 96 * 96]
    return (part**2).reshape(-1, 96).mean(axis=1)


def share(mono, low, high):
    """The part of the energy in a band, in dB."""
    return 10 * math.log10(band_power(mono, low, high).sum() / band_power(mono, 0, RATE).sum())


def fading(mono, low, high, drop=30):
    """Seconds from a band's loudest moment until it stays so many dB below."""
    power = band_power(mono, low, high)
    audible = np.flatnonzero(power > power.max() * 10 ** (-drop / 10))
    return 0.002 * (audible[-1] - power.argmax())


class Measures(unittest.TestCase):
    """The measures of this file, against signals whose figures are known."""

    def sine(self, frequency, phase=0.0, seconds=1.0):
        time = np.arange(round(seconds * RATE)) / RATE
        tone = np.sin(2 * np.pi * frequency * time + phase)
        return np.stack((tone, np.zeros_like(tone)), axis=1)

    def test_a_full_sine_of_997_hz_in_one_channel_has_the_loudness_that_the_standard_gives(self):
        self.assertAlmostEqual(momentary(self.sine(997), 0.4), -3.01, delta=0.02)

    def test_a_low_sine_counts_less_and_a_high_one_more(self):
        self.assertLess(momentary(self.sine(40), 0.4), -8)
        self.assertAlmostEqual(momentary(self.sine(10000), 0.4), 0.3, delta=0.15)

    def test_a_peak_between_the_samples_is_found(self):
        tone = self.sine(RATE / 4, math.pi / 4) * np.hanning(RATE)[:, None]
        self.assertAlmostEqual(20 * math.log10(np.abs(tone).max()), -3.01, delta=0.01)
        self.assertAlmostEqual(true_peak(tone), 0.0, delta=0.01)


class Generator(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.runs = [Path(folder.name) / number for number in ("first", "second")]
        for run in cls.runs:
            subprocess.run(["/usr/bin/python3", "-B", ROOT / "tools" / "samples" / "make.py", run],
                           check=True, timeout=50)

    def test_makes_the_five_sounds_and_nothing_else(self):
        names = sorted(f"{name}.wav" for name in TABLE)
        for folder in (*self.runs, SHIPPED):
            self.assertEqual(sorted(path.name for path in folder.iterdir()), names)

    def test_makes_the_same_bytes_on_every_run(self):
        for name in TABLE:
            first, second = ((run / f"{name}.wav").read_bytes() for run in self.runs)
            self.assertEqual(first, second, name)

    # Other processors and libraries may round a sine otherwise, and one sample with it.
    def test_makes_what_is_shipped(self):
        for name in TABLE:
            with self.subTest(name):
                made, shipped = (read(folder / f"{name}.wav").astype(int)
                                 for folder in (self.runs[0], SHIPPED))
                self.assertEqual(made.shape, shipped.shape)
                self.assertLessEqual(np.abs(made - shipped).max(), 1)


class EverySound(unittest.TestCase):
    def assert_each(self, check):
        for name in TABLE:
            with self.subTest(name):
                check(name, read(SHIPPED / f"{name}.wav") / 32768)

    def test_is_stereo_of_16_bits_at_48_khz(self):
        for name in TABLE:
            with self.subTest(name), wave.open(str(SHIPPED / f"{name}.wav")) as file:
                self.assertEqual(file.getparams()[:3], (2, 2, RATE))
                self.assertEqual(file.getcomptype(), "NONE")

    def test_lasts_as_long_as_it_should(self):
        def check(name, stereo):
            shortest, longest, _ = TABLE[name]
            self.assertTrue(shortest <= len(stereo) / RATE <= longest, len(stereo) / RATE)
        self.assert_each(check)

    def test_begins_at_zero_and_at_once(self):
        def check(_, stereo):
            level = np.abs(stereo).max(axis=1)
            self.assertEqual(level[0], 0)
            self.assertLessEqual(np.flatnonzero(level > level.max() / 100)[0], 0.001 * RATE)
        self.assert_each(check)

    def test_has_faded_to_zero_at_its_end(self):
        def check(_, stereo):
            level = np.abs(stereo).max(axis=1)
            self.assertEqual(level[-1], 0)
            self.assertLessEqual(level[-240:].max(), 4 * LEAST)
            self.assertLessEqual(level[-48:].max(), 2 * LEAST)
        self.assert_each(check)

    def test_stays_below_full_scale_between_the_samples_too(self):
        def check(_, stereo):
            self.assertLess(true_peak(stereo), -1)
        self.assert_each(check)

    def test_has_no_offset(self):
        def check(_, stereo):
            self.assertLess(np.abs(stereo.mean(axis=0)).max(), 1e-4)
        self.assert_each(check)

    def test_is_as_loud_as_the_table_says(self):
        def check(name, stereo):
            self.assertAlmostEqual(momentary(stereo), KEY_DOWN_LOUDNESS + TABLE[name][2], delta=0.1)
        self.assert_each(check)

    def test_is_dithered_where_it_is_too_quiet_for_16_bits(self):
        def check(_, stereo):
            end = np.round(stereo[-240:-1] / LEAST).astype(int)
            self.assertGreater(len(np.unique(end)), 2)
            left, right = end.T
            self.assertLess(abs(np.corrcoef(left, right)[0, 1]), 0.3)
        self.assert_each(check)


class Character(unittest.TestCase):
    def mono(self, name):
        return read(SHIPPED / f"{name}.wav").mean(axis=1) / 32768

    def test_a_key_has_a_body_and_a_tick(self):
        key = self.mono("key-down")
        self.assertGreater(share(key, 120, 250), -12)
        self.assertGreater(share(key, 2000, 5000), -9)
        self.assertGreater(fading(key, 100, 400), 2 * fading(key, 2000, 5000))

    def test_a_key_is_lighter_and_shorter_on_its_way_up(self):
        down, up = self.mono("key-down"), self.mono("key-up")
        self.assertLess(fading(up, 0, RATE), 0.7 * fading(down, 0, RATE))
        self.assertGreater(share(up, 2000, 16000), share(down, 2000, 16000) + 2)
        self.assertLess(share(up, 100, 400), share(down, 100, 400) - 4)

    def test_a_selector_bounces_once_and_much_weaker(self):
        power = band_power(self.mono("mode-switch"), 1500, 16000)
        bounce = power[4:6].max()
        self.assertGreater(bounce, 2 * power[3])
        self.assertTrue(0.005 < bounce / power[:2].max() < 0.1)

    def test_a_bell_loses_its_high_partials_first(self):
        bell = self.mono("chime")
        times = [fading(bell, *band) for band in ((400, 620), (850, 1400), (2000, 8000))]
        self.assertGreater(times[0], 1.3 * times[1])
        self.assertGreater(times[1], 1.3 * times[2])

    def test_the_chime_strikes_two_notes_a_fourth_apart(self):
        bell = self.mono("chime")
        spectrum = np.abs(np.fft.rfft(bell * np.hanning(len(bell)), 8 * len(bell)))
        frequency = np.fft.rfftfreq(8 * len(bell), 1 / RATE)
        low, high = (frequency[np.where((frequency > begin) & (frequency < end), spectrum, 0)
                     .argmax()] for begin, end in ((380, 500), (500, 680)))
        self.assertAlmostEqual(high / low, 4 / 3, delta=0.002)

    def test_the_chime_is_a_little_wide_and_the_clicks_hardly(self):
        for name, narrowest, widest in (("key-down", 0.99, 1), ("key-up", 0.99, 1),
                                        ("mode-switch", 0.99, 1), ("chime", 0.9, 0.99)):
            left, right = read(SHIPPED / f"{name}.wav").T
            self.assertTrue(narrowest <= np.corrcoef(left, right)[0, 1] <= widest, name)

    def test_what_is_blocked_knocks_twice_muted_and_the_second_time_softer(self):
        knock = self.mono("blocked")
        self.assertLess(share(knock, 1000, 24000), -30)
        power = band_power(knock, 100, 1000)
        first, between, second = power[:20].max(), power[60:68].max(), power[68:90].max()
        self.assertLess(between, second / 100)
        self.assertTrue(0.2 < second / first < 0.7)


class Page(unittest.TestCase):
    def test_the_figures_of_the_page_are_those_of_the_shipped_sounds(self):
        printed = subprocess.run(
            ["/usr/bin/python3", "-B", ROOT / "tools" / "samples" / "measure.py"], text=True,
            stdout=subprocess.PIPE, check=True, timeout=50).stdout
        self.assertEqual(printed.count("\n"), 2 + len(TABLE))
        self.assertIn(f"\n\n{printed}\n", (ROOT / "docs" / "sounds.md").read_text())


if __name__ == "__main__":
    unittest.main()
