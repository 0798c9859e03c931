"""What is packed for the browsers: read as a browser reads it, by other means than the packer's."""

import base64
import hashlib
import io
import json
import os
import struct
import subprocess
import tempfile
import unittest
import zipfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
SOURCES = ROOT / "src" / "BrowserExtension"
FIREFOX_ID = "browser@tolvar.app"


def openssl(*arguments):
    return subprocess.run(["openssl", *arguments], check=True, capture_output=True).stdout


def pack(key, folder):
    subprocess.run([SOURCES / "pack.py", "--version", "1.2.3", "--key", key, "--firefox-id", FIREFOX_ID,
                    "--icons", ROOT / "data" / "icons" / "hicolor", "--into", folder], check=True)


def fields(message):
    """The fields of a protocol-buffer message of bytes, by their numbers."""
    stream, found = io.BytesIO(message), {}
    while (tag := read_varint(stream)) is not None:
        found[tag >> 3] = stream.read(read_varint(stream))
    return found


def read_varint(stream):
    number = shift = 0
    while digit := stream.read(1):
        number |= (digit[0] & 0x7F) << shift
        shift += 7
        if digit[0] < 0x80:
            return number
    return None


class Packed(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        cls.key = cls.folder / "key.pem"
        openssl("genrsa", "-out", cls.key, "2048")
        cls.public_key = openssl("rsa", "-in", cls.key, "-pubout", "-outform", "DER")
        pack(cls.key, cls.folder)

    def archive(self, name):
        return zipfile.ZipFile(io.BytesIO((self.folder / name).read_bytes()))

    def manifest(self, name):
        return json.loads(self.archive(name).read("manifest.json"))

    def header_and_archive(self):
        """Of the CRX file."""
        content = (self.folder / "tolvar.crx").read_bytes()
        magic, version, size = struct.unpack_from("<4sII", content)
        self.assertEqual((magic, version), (b"Cr24", 3))
        return fields(content[12:12 + size]), content[12 + size:]

    def test_the_same_sources_and_key_give_the_same_bytes(self):
        with tempfile.TemporaryDirectory() as other:
            pack(self.key, Path(other))
            for name in ("tolvar.crx", "tolvar.xpi"):
                self.assertEqual((Path(other) / name).read_bytes(), (self.folder / name).read_bytes())

    def test_the_signature_covers_the_archive_and_the_id(self):
        header, archive = self.header_and_archive()
        proof = fields(header[2])
        self.assertEqual(proof[1], self.public_key)
        message = b"CRX3 SignedData\0" + struct.pack("<I", len(header[10000])) + header[10000] + archive
        for name, content in (("public", proof[1]), ("signature", proof[2]), ("message", message)):
            (self.folder / name).write_bytes(content)
        told = openssl("dgst", "-sha256", "-verify", self.folder / "public", "-keyform", "DER",
                       "-signature", self.folder / "signature", self.folder / "message")
        self.assertEqual(told, b"Verified OK\n")
        self.assertEqual(fields(header[10000]), {1: hashlib.sha256(self.public_key).digest()[:16]})

    def test_chromium_gets_the_same_signed_and_unpacked(self):
        archive = zipfile.ZipFile(io.BytesIO(self.header_and_archive()[1]))
        unpacked = self.folder / "chromium"
        self.assertEqual({name: archive.read(name) for name in archive.namelist()},
                         {str(path.relative_to(unpacked)): path.read_bytes()
                          for path in unpacked.rglob("*") if path.is_file()})

    def test_browsers_get_the_same_but_for_what_they_name_differently(self):
        chromium, firefox = self.archive("tolvar.crx"), self.archive("tolvar.xpi")
        self.assertEqual(chromium.namelist(), firefox.namelist())
        differing = [name for name in chromium.namelist() if chromium.read(name) != firefox.read(name)]
        self.assertEqual(differing, ["manifest.json"])
        own = {"key", "background", "minimum_chrome_version", "browser_specific_settings"}
        chromium, firefox = self.manifest("tolvar.crx"), self.manifest("tolvar.xpi")
        self.assertEqual({key: value for key, value in chromium.items() if key not in own},
                         {key: value for key, value in firefox.items() if key not in own})
        self.assertEqual(firefox["browser_specific_settings"]["gecko"]["id"], FIREFOX_ID)

    def test_it_may_see_tabs_and_speak_to_a_program_and_nothing_else(self):
        for name in ("tolvar.crx", "tolvar.xpi"):
            manifest = self.manifest(name)
            self.assertEqual(manifest["permissions"], ["tabs", "nativeMessaging"])
            self.assertEqual(manifest["manifest_version"], 3)
            self.assertEqual(manifest["version"], "1.2.3")
            for more in ("host_permissions", "optional_permissions", "content_scripts",
                         "externally_connectable", "web_accessible_resources",
                         "content_security_policy"):
                self.assertNotIn(more, manifest)

    def test_its_code_is_all_there_and_short(self):
        code = (SOURCES / "background.js").read_text()
        self.assertLess(len(code.splitlines()), 200)
        self.assertNotRegex(code, r"\b(fetch|import|importScripts|eval|Function|XMLHttpRequest)\b\s*\(")

    def test_every_icon_is_as_large_as_it_says(self):
        for size, name in self.manifest("tolvar.xpi")["icons"].items():
            image = self.archive("tolvar.xpi").read(name)
            self.assertEqual(struct.unpack_from(">II", image, 16), (int(size), int(size)))


class Built(unittest.TestCase):
    def test_the_program_knows_the_extension_that_was_packed_with_it(self):
        programs = Path(os.environ["TOLVAR"]).parent
        manifest = json.loads((programs / "../share/tolvar/browser/chromium/manifest.json").read_text())
        digits = hashlib.sha256(base64.b64decode(manifest["key"])).hexdigest()[:32]
        extension = "".join(chr(ord("a") + int(digit, 16)) for digit in digits)
        self.assertIn(extension.encode(), (programs / "tolvar-browser-host").read_bytes())


if __name__ == "__main__":
    unittest.main()
