"""What scripts/check must notice: violations planted in a copy of the tree are found."""

import json
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


class Lint(unittest.TestCase):
    """scripts/lint in a small tree of its own."""

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.copy = Path(folder.name)
        for part in ("scripts", "tools/Lint"):
            shutil.copytree(ROOT / part, cls.copy / part)
        shutil.copy(ROOT / ".clang-tidy", cls.copy)
        # Made once for all tests: the plugin takes some seconds to build.
        (cls.copy / "build").mkdir()

    def setUp(self):
        for name in ("src", "tests", "system"):
            shutil.rmtree(self.copy / name, ignore_errors=True)
            (self.copy / name).mkdir()

    def plant(self, path, text):
        (self.copy / path).write_text(text)

    def lint(self, path, *options, flags=""):
        command = (f"c++ -std=c++20 -I{self.copy}/src -isystem {self.copy}/system {flags}"
                   f" -o out.o -c {self.copy / path}")
        (self.copy / "build" / "compile_commands.json").write_text(json.dumps(
            [{"directory": str(self.copy), "file": str(self.copy / path), "command": command}]))
        return subprocess.run([self.copy / "scripts" / "lint", self.copy / "build", *options,
                               self.copy / path], text=True, capture_output=True, check=False)

    def assert_found(self, path, place, check, *options):
        result = self.lint(path, *options)
        self.assertEqual(result.returncode, 1, result.stdout + result.stderr)
        self.assertRegex(result.stdout, rf"{self.copy}/{place}:\d+: error: .*\[{check}\b")

    def assert_clean(self, path, *options, **how):
        result = self.lint(path, *options, **how)
        self.assertEqual((result.returncode, result.stdout + result.stderr), (0, ""))

    def test_nothing_is_found_where_nothing_is_wrong(self):
        self.plant("src/Planted.cpp", "#include <vector>\nstd::vector<int> numbers;\n")
        self.assert_clean("src/Planted.cpp")

    def test_finds_it_in_a_source(self):
        self.plant("src/Planted.cpp", "typedef int Number;\n")
        self.assert_found("src/Planted.cpp", "src/Planted.cpp:1", "modernize-use-using")

    def test_finds_it_in_namespaces_functions_and_lambdas(self):
        self.plant("src/Planted.cpp", "#include <functional>\nnamespace a { namespace {\n"
                   "std::function<int()> f() {\nreturn [] { double d = 1; return *(int*)&d; };\n}\n"
                   "} std::function<int()> g() { return f(); } }\n")
        self.assert_found("src/Planted.cpp", "src/Planted.cpp:4",
                          "cppcoreguidelines-pro-type-cstyle-cast")

    def test_finds_it_in_a_header_of_ours(self):
        self.plant("src/Planted.h", "namespace own { typedef int Number; }\n")
        self.plant("src/Planted.cpp", '#include "Planted.h"\n')
        self.assert_found("src/Planted.cpp", "src/Planted.h:1", "modernize-use-using")

    def test_finds_it_in_a_test(self):
        self.plant("tests/PlantedTest.cpp", "typedef int Number;\n")
        self.assert_found("tests/PlantedTest.cpp", "tests/PlantedTest.cpp:1", "modernize-use-using")

    def test_finds_it_in_a_macro_of_ours(self):
        self.plant("src/Planted.cpp", "#define TWICE(x) x + x\nint four() { return TWICE(2); }\n")
        self.assert_found("src/Planted.cpp", "src/Planted.cpp:1", "bugprone-macro-parentheses")
        self.plant("src/Planted.cpp", "#define READER(name) "
                   "int name(char* c) { return *(int*)c; }\nREADER(first)\n")
        self.assert_found("src/Planted.cpp", "src/Planted.cpp:2",
                          "cppcoreguidelines-pro-type-cstyle-cast")

    def test_finds_it_in_what_we_write_into_a_macro_of_others(self):
        self.plant("system/testing.h", "#define TEST(name) struct name { void run(); };"
                   " void name::run()\n")
        self.plant("tests/PlantedTest.cpp", "#include <testing.h>\n"
                   "TEST(Planted) {\n    typedef int Number;\n    Number n = 0;\n    (void)n;\n}\n")
        self.assert_found("tests/PlantedTest.cpp", "tests/PlantedTest.cpp:3", "modernize-use-using")

    def test_finds_it_in_a_template_that_is_used_or_not(self):
        self.plant("src/Planted.h", "#include <string>\n"
                   "template<typename T> struct Box {\n"
                   "    typedef T Value;\n"
                   "    int size(std::string text) { return text.size() + sizeof(T); }\n};\n")
        self.plant("src/Planted.cpp", '#include "Planted.h"\n')
        self.assert_found("src/Planted.cpp", "src/Planted.h:3", "modernize-use-using")
        self.plant("src/Planted.cpp", '#include "Planted.h"\n'
                   "int two() { return Box<int>().size({}); }\n")
        self.assert_found("src/Planted.cpp", "src/Planted.h:3", "modernize-use-using")

    def test_finds_it_in_what_we_add_to_a_namespace_of_others(self):
        self.plant("src/Planted.cpp", "#include <functional>\nstruct Own {};\n"
                   "template<> struct std::hash<Own> {\n"
                   "    typedef Own argument;\n};\n")
        self.assert_found("src/Planted.cpp", "src/Planted.cpp:4", "modernize-use-using")

    def test_finds_what_takes_knowledge_of_others(self):
        self.plant("system/base.h", "struct Base { virtual ~Base() = default;"
                   " virtual void close(); };\n")
        self.plant("src/Planted.cpp", "#include <base.h>\n#include <string>\n"
                   "struct Own : Base { virtual void close(); };\n"
                   "auto size(std::string text) { return text.size(); }\n")
        self.assert_found("src/Planted.cpp", "src/Planted.cpp:3", "modernize-use-override")
        self.assert_found("src/Planted.cpp", "src/Planted.cpp:4",
                          "performance-unnecessary-value-param")

    def test_finds_what_the_compiler_warns_of(self):
        self.plant("src/Planted.cpp", "int same(int i) { i == i; return i; }\n")
        self.assert_found("src/Planted.cpp", "src/Planted.cpp:1", "clang-diagnostic-")

    def test_walks_around_the_code_of_others(self):
        self.plant("system/other.h", "typedef int Number;\n")
        self.plant("src/Planted.cpp", "#include <other.h>\nNumber number = 0;\n")
        # Even when clang-tidy is told to show what it finds there.
        self.assert_clean("src/Planted.cpp", "--system-headers", "--header-filter=.*")

    def test_leaves_out_the_precompiled_headers_of_other_compilers(self):
        self.plant("src/Planted.cpp", "int number = 0;\n")
        self.assert_clean("src/Planted.cpp", flags="-Winvalid-pch -include nowhere/cmake_pch.hxx")
        self.assert_clean("src/Planted.cpp", flags="-Winvalid-pch -Xclang -include-pch -Xclang"
                          " nowhere/cmake_pch.hxx.pch -Xclang -include -Xclang cmake_pch.hxx")

    def test_is_an_error_when_the_plugin_does_not_build(self):
        self.plant("src/Planted.cpp", "int number = 0;\n")
        plugin = self.copy / "tools" / "Lint" / "OwnCode.cpp"
        source = plugin.read_text()
        self.addCleanup(plugin.write_text, source)
        plugin.write_text("#error planted\n")
        result = self.lint("src/Planted.cpp")
        self.assertEqual(result.returncode, 1)
        self.assertIn("does not build", result.stderr)

    def test_asks_for_files(self):
        result = subprocess.run([ROOT / "scripts" / "lint", self.copy], text=True,
                                capture_output=True, check=False)
        self.assertEqual(result.returncode, 2)
        self.assertIn("BUILD-FOLDER", result.stderr)


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
