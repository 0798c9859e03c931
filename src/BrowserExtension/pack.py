#!/usr/bin/python3
"""Packs the browser extension: one folder of sources, three things to install.

  pack.py --version VERSION --key FILE.pem --icons FOLDER --firefox-id ID --into FOLDER

    FOLDER/chromium/     the unpacked extension, for Chromium and its kin
    FOLDER/tolvar.crx    the same, signed
    FOLDER/tolvar.xpi    for Firefox

What differs between the browsers stands in their manifests alone (see manifest_for). The same
sources, version and key give the same bytes, whenever and wherever they are packed.
"""

import argparse
import base64
import hashlib
import io
import json
import shutil
import struct
import subprocess
import zipfile
from pathlib import Path

SOURCES = Path(__file__).resolve().parent
ICON_SIZES = (16, 32, 48, 128)
EPOCH = (1980, 1, 1, 0, 0, 0)  # the first moment that a zip archive can tell


class Key:
    """The RSA key of the extension, used by way of openssl."""

    def __init__(self, path: Path):
        self._path = path
        self.public = self._openssl("rsa", "-in", path, "-pubout", "-outform", "DER")

    def sign(self, message: bytes) -> bytes:
        return self._openssl("dgst", "-sha256", "-sign", self._path, message=message)

    @staticmethod
    def _openssl(*arguments, message: bytes = b"") -> bytes:
        done = subprocess.run(["openssl", *arguments], input=message, capture_output=True, check=False)
        if done.returncode != 0:
            raise SystemExit(f"pack.py: openssl {arguments[0]}: {done.stderr.decode()}")
        return done.stdout


def manifest_for(browser: str, arguments: argparse.Namespace, key: Key) -> dict:
    manifest = json.loads((SOURCES / "manifest.json").read_text())
    manifest["version"] = arguments.version
    manifest["icons"] = {str(size): icon_name(size) for size in ICON_SIZES}
    if browser == "chromium":
        # The key gives the unpacked extension the id of the signed one.
        manifest["key"] = base64.b64encode(key.public).decode()
        # Since then a connection to a native-messaging host keeps a service worker alive.
        manifest["minimum_chrome_version"] = "105"
        manifest["background"] = {"service_worker": "background.js"}
    else:
        manifest["background"] = {"scripts": ["background.js"]}
        manifest["browser_specific_settings"] = {"gecko": {
            "id": arguments.firefox_id,
            "strict_min_version": "115.0",
            "data_collection_permissions": {"required": ["none"]},
        }}
    return manifest


def icon_name(size: int) -> str:
    return f"icons/{size}.png"


def files_for(browser: str, arguments: argparse.Namespace, key: Key) -> dict[str, bytes]:
    """The files of the extension by their names in it."""
    manifest = json.dumps(manifest_for(browser, arguments, key), indent=2) + "\n"
    files = {"manifest.json": manifest.encode(),
             "background.js": (SOURCES / "background.js").read_bytes()}
    for size in ICON_SIZES:
        icon = arguments.icons / f"{size}x{size}" / "apps" / "app.tolvar.Tolvar.png"
        files[icon_name(size)] = icon.read_bytes()
    return files


def zipped(files: dict[str, bytes]) -> bytes:
    archive = io.BytesIO()
    with zipfile.ZipFile(archive, "w") as file:
        for name, content in files.items():
            entry = zipfile.ZipInfo(name, EPOCH)
            entry.external_attr = 0o644 << 16
            # Stored, not deflated: another zlib would give other bytes, and little is gained.
            file.writestr(entry, content)
    return archive.getvalue()


def signed(archive: bytes, key: Key) -> bytes:
    """The archive as a CRX file of version 3: the letters Cr24, the version, the header's size, the
    header, the archive. The header is a protocol-buffer message:

        2      { 1: public key, 2: signature }    for RSA with SHA-256
        10000  { 1: id }                          what is signed together with the archive
    """
    signed_data = field(1, hashlib.sha256(key.public).digest()[:16])
    signature = key.sign(b"CRX3 SignedData\0" + struct.pack("<I", len(signed_data))
                         + signed_data + archive)
    header = field(2, field(1, key.public) + field(2, signature)) + field(10000, signed_data)
    return b"Cr24" + struct.pack("<II", 3, len(header)) + header + archive


def field(number: int, content: bytes) -> bytes:
    """A field of bytes in a protocol-buffer message."""
    length_delimited = 2
    return varint(number << 3 | length_delimited) + varint(len(content)) + content


def varint(number: int) -> bytes:
    """Seven bits a byte, the low ones first; the top bit says that more follow."""
    digits = bytearray()
    while number > 0x7F:
        digits.append(number & 0x7F | 0x80)
        number >>= 7
    return bytes([*digits, number])


def write_unpacked(folder: Path, files: dict[str, bytes]) -> None:
    shutil.rmtree(folder, ignore_errors=True)
    for name, content in files.items():
        (folder / name).parent.mkdir(parents=True, exist_ok=True)
        (folder / name).write_bytes(content)


def main() -> None:
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--version", required=True)
    parser.add_argument("--firefox-id", required=True)
    for name in ("--key", "--icons", "--into"):
        parser.add_argument(name, required=True, type=Path)
    arguments = parser.parse_args()

    key = Key(arguments.key)
    chromium = files_for("chromium", arguments, key)
    write_unpacked(arguments.into / "chromium", chromium)
    (arguments.into / "tolvar.crx").write_bytes(signed(zipped(chromium), key))
    (arguments.into / "tolvar.xpi").write_bytes(zipped(files_for("firefox", arguments, key)))


if __name__ == "__main__":
    main()
