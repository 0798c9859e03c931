#!/usr/bin/python3
"""Makes the interface sounds.

  tools/samples/make.py [FOLDER]      data/Sounds unless another one is named
"""

import sys
from pathlib import Path

import finish
from sounds import SOUNDS

SHIPPED = Path(__file__).resolve().parents[2] / "data" / "Sounds"


def main():
    folder = Path(sys.argv[1]) if len(sys.argv) > 1 else SHIPPED
    folder.mkdir(parents=True, exist_ok=True)
    for sound in SOUNDS:
        finish.write(folder / f"{sound.name}.wav", finish.finished(sound))


if __name__ == "__main__":
    main()
