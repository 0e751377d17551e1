#!/usr/bin/env python3
"""Makes the sample installation's aircraft.

    make-sample.py            writes sample/Aircraft
    make-sample.py --check    fails if the files there differ from those that it makes
"""
import sys
from pathlib import Path

from sample import glider, prototype, scout, trainer
from sample.picture import same_picture

SAMPLE = Path(__file__).resolve().parent.parent / "sample"


def main():
    made = {SAMPLE / path: content for aircraft in (trainer, scout, glider, prototype) for path, content in aircraft.files()}
    if sys.argv[1:] == ["--check"]:
        sys.exit(check(made))
    for path, content in made.items():
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)
    print(f"{len(made)} files, {sum(map(len, made.values())) // 1024} KB")


def check(made):
    found = {path for path in (SAMPLE / "Aircraft").rglob("*") if path.is_file()}
    wrong = sorted(found ^ made.keys())
    wrong += [path for path in sorted(found & made.keys()) if not same(path, made[path])]
    for path in wrong:
        print(f"{path} is not what scripts/make-sample.py makes", file=sys.stderr)
    return 1 if wrong else 0


def same(path, content):
    written = path.read_bytes()
    return written == content or (path.suffix.lower() == ".png" and same_picture(written, content))


if __name__ == "__main__":
    main()
