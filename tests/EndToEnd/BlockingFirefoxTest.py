"""Websites are blocked in Firefox."""

import unittest

from blocking import Blocking
from firefox import Firefox


class BlockingInFirefox(Blocking, unittest.TestCase):
    @classmethod
    def make_browser(cls):
        return Firefox(cls.websites, cls.home.path)


if __name__ == "__main__":
    unittest.main()
