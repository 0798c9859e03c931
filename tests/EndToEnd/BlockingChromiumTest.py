"""Websites are blocked in Chromium."""

import unittest

from blocking import Blocking
from chromium import Chromium


class BlockingInChromium(Blocking, unittest.TestCase):
    @classmethod
    def make_browser(cls):
        return Chromium(cls.websites)


if __name__ == "__main__":
    unittest.main()
