#!/usr/bin/env python3
"""check_docs.py PROGRAM [--update]: runs the commands of the documents' console blocks on the sample and compares their
output with the documents; --update writes it into them. Every option of every command must be in its chapter of docs/batch.md
and in the man page."""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
DOCUMENTS = ["docs/batch.md", "docs/formats.md", "docs/full-reading.md", "docs/vrconfig.md"]
BLOCK = re.compile(r"(?<=^```console\n)(.*?)(?=^```$)", re.M | re.S)


def commands_of(block):
    """A block's commands: lines after '$ ', with their continuation lines."""
    return re.findall(r"^\$ (.*(?:(?<=\\)\n.*)*)$", block, re.M)


def run(commands, folder, environment):
    """The text of a block with these commands, each run in a shell of its own."""
    text = ""
    code = 0
    for command in commands:
        result = subprocess.run(["bash", "-c", f"(exit {code})\n{command}"], cwd=folder, env=environment,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, timeout=120)
        code = result.returncode
        text += f"$ {command}\n{result.stdout}"
        text += "" if text.endswith("\n") else "\n"
    return text


def check_blocks(name, folder, environment, update):
    path = ROOT / name
    document = path.read_text()
    real = BLOCK.sub(lambda block: run(commands_of(block[0]), folder, environment), document)
    # The order of aircraft depends on the file system, so the lines of one command may be in any order.
    parts = [[sorted(line.rstrip(",") for line in part.splitlines()) for part in re.split(r"^(?=\$ |```)", text, flags=re.M)]
             for text in (real, document)]
    if parts[0] == parts[1]:
        return True
    if update:
        path.write_text(real)
        return True
    (folder / "said").write_text(document)
    (folder / "real").write_text(real)
    print(f"FAILED: {name} does not show what the program prints; run check_docs.py --update", flush=True)
    subprocess.run(["diff", "-u", folder / "said", folder / "real"])
    return False


def check_options(program):
    chapters = dict(re.findall(r"^## (\w+)[^\n]*\n(.*?)(?=^## |\Z)", (ROOT / "docs/batch.md").read_text(), re.M | re.S))
    manual = (ROOT / "packaging/vorelle-batch.1").read_text().replace("\\-", "-")
    options = subprocess.run([program, "--completion"], stdout=subprocess.PIPE, text=True, check=True).stdout
    complete = options.count("--") > 20
    for command, option in re.findall(r"^(\w[\w ]*)\t(--[\w-]+)", options, re.M):
        for place, text in [("docs/batch.md", chapters.get(command.split()[0], "")), ("the man page", manual)]:
            if option != "--help" and option not in text:
                print(f"FAILED: {place} does not describe {command} {option}")
                complete = False
    return complete


def main():
    program, update = os.path.abspath(sys.argv[1]), "--update" in sys.argv
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        shutil.copytree(ROOT / "sample", folder / "X-Plane")
        (folder / "bin").mkdir()
        (folder / "bin/vorelle-batch").symlink_to(program)
        environment = {**os.environ, "PATH": f"{folder / 'bin'}:{os.environ['PATH']}", "LC_ALL": "C.UTF-8",
                       "XDG_DATA_HOME": str(folder / "data")}
        done = [check_blocks(document, folder, environment, update) for document in DOCUMENTS]
    return 0 if check_options(program) and all(done) else 1


sys.exit(main())
