"""What scripts/check must notice: violations planted in a copy of the tree are found."""

import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]


class Layering(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.copy = Path(folder.name)
        shutil.copytree(ROOT / "src", self.copy / "src")

    def check(self):
        return subprocess.run([ROOT / "scripts" / "check-layering", self.copy], text=True,
                              capture_output=True, check=False)

    def plant(self, path, text):
        file = self.copy / "src" / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text)

    def assert_found(self, *words):
        result = self.check()
        self.assertEqual(result.returncode, 1)
        for word in words:
            self.assertIn(word, result.stderr)

    def test_the_tree_itself_is_in_order(self):
        result = self.check()
        self.assertEqual((result.returncode, result.stderr), (0, ""))

    def test_a_view_included_from_the_engine_is_found(self):
        self.plant("Views/Shared/Key.h", "#pragma once\n")
        self.plant("Models/Planted.cpp", '#include "Views/Shared/Key.h"\n')
        self.assert_found("src/Models/Planted.cpp", "may not include Views/Shared/Key.h")

    def test_a_view_included_in_angle_brackets_or_by_a_way_around_is_found(self):
        self.plant("Views/Shared/Key.h", "#pragma once\n")
        self.plant("Models/Angle.cpp", "#include <Views/Shared/Key.h>\n")
        self.plant("Models/Around.cpp", '  #  include "../Views/Shared/Key.h"\n')
        self.assert_found("src/Models/Angle.cpp", "src/Models/Around.cpp")

    def test_headers_of_window_systems_and_buses_are_found_in_the_engine(self):
        for header in ("xcb/xcb.h", "X11/Xlib.h", "QtDBus/QDBusConnection", "QDBusMessage",
                       "QtWidgets/QWidget", "QPainter", "sqlite3.h", "unistd.h"):
            with self.subTest(header):
                self.plant("Services/Planted.h", f"#include <{header}>\n")
                self.assert_found("src/Services/Planted.h", header)

    def test_an_arrow_that_points_up_within_the_engine_is_found(self):
        self.plant("Extensions/Planted.h", '#include "Models/FocusManager.h"\n')
        self.assert_found("Extensions may not include Models/FocusManager.h")

    def test_x11_and_dbus_do_not_meet(self):
        self.plant("Platform/Linux/X11/Planted.h", "#include <QDBusConnection>\n")
        self.plant("Platform/Linux/DBus/Planted.h", "#include <xcb/xcb.h>\n")
        self.plant("App/Planted.cpp", "#include <QDBusConnection>\n#include <xcb/xcb.h>\n")
        self.assert_found("src/Platform/Linux/X11/Planted.h", "src/Platform/Linux/DBus/Planted.h",
                          "xcb and QtDBus meet in one file")

    def test_a_folder_that_no_layer_names_is_found(self):
        self.plant("Helpers/Planted.h", "#pragma once\n")
        self.assert_found("src/Helpers/Planted.h: its folder is in no layer")

    def test_a_tree_without_sources_is_an_error(self):
        shutil.rmtree(self.copy / "src")
        self.assert_found("no sources")


class Check(unittest.TestCase):
    """scripts/check as a whole, in a small repository of its own."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.copy = Path(folder.name)
        shutil.copytree(ROOT / "scripts", self.copy / "scripts")
        shutil.copytree(ROOT / ".ci", self.copy / ".ci")
        shutil.copytree(ROOT / "src" / "Extensions", self.copy / "src" / "Extensions")
        shutil.copy(ROOT / ".clang-format", self.copy)
        subprocess.run(["git", "init", "--quiet", self.copy], check=True)

    def check(self, name):
        return subprocess.run([self.copy / "scripts" / "check", name], text=True,
                              capture_output=True, check=False)

    def assert_notices(self, name, path, text):
        self.assertEqual(self.check(name).returncode, 0, f"{name} before anything was planted")
        file = self.copy / path
        file.write_text(text)
        file.chmod(0o755)
        result = self.check(name)
        self.assertEqual(result.returncode, 1)
        self.assertRegex(result.stdout, f"{name} +FAILED")

    def test_notices_an_include_across_the_layers(self):
        self.assert_notices("layering", "src/Extensions/Planted.h", "#include <QPainter>\n")

    def test_notices_a_badly_formatted_source(self):
        self.assert_notices("format", "src/Extensions/Planted.h", "int  planted ( );\n")

    def test_notices_a_careless_shell_script(self):
        self.assert_notices("scripts", "scripts/planted", "#!/bin/bash\ncd $1\n")

    def test_notices_a_broken_python_script(self):
        self.assert_notices("scripts", "scripts/planted", "#!/usr/bin/python3\nif:\n")


class Linkage(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.build = Path(folder.name)
        (self.build / "tests").mkdir()

    def check(self):
        return subprocess.run([ROOT / "scripts" / "check-linkage", self.build], text=True,
                              capture_output=True, check=False)

    def link(self, *libraries):
        subprocess.run(["g++", "-x", "c++", "-", "-o", self.build / "tests" / "program",
                        "-Wl,--no-as-needed", *libraries], input="int main() {}", text=True,
                       check=True)

    def test_a_program_of_the_language_alone_passes(self):
        self.link()
        self.assertEqual(self.check().returncode, 0)

    def test_a_graphical_library_is_found(self):
        self.link("-lxcb")
        result = self.check()
        self.assertEqual(result.returncode, 1)
        self.assertIn("libxcb", result.stderr)

    def test_a_folder_without_programs_is_an_error(self):
        self.assertEqual(self.check().returncode, 1)


if __name__ == "__main__":
    unittest.main()
