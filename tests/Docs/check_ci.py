#!/usr/bin/env python3
"""check_ci.py PROGRAM: runs the shell steps of docs/ci/aircraft.yml, except the installation of the package, in a repository
with one aircraft of the sample, and checks their results."""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import textwrap

ROOT = pathlib.Path(__file__).resolve().parents[2]
AIRCRAFT = "Lark 15.2"


def shell_steps():
    text = (ROOT / "docs/ci/aircraft.yml").read_text()
    steps = re.findall(r"^ +- name: (.*)\n +run: (?:\|\n((?:  {9}.*\n|\n)+)|(.*)\n)", text, re.M)
    return [(name, textwrap.dedent(block) or line) for name, block, line in steps if name != "Install"]


def main():
    program = os.path.abspath(sys.argv[1])
    with tempfile.TemporaryDirectory() as name:
        repository = pathlib.Path(name) / "repository"
        shutil.copytree(ROOT / "sample/Aircraft/Sailplanes" / AIRCRAFT, repository)
        (repository / "bin").mkdir()
        (repository / "bin/vorelle-batch").symlink_to(program)
        environment = {**os.environ, "PATH": f"{repository / 'bin'}:{os.environ['PATH']}", "AIRCRAFT": AIRCRAFT,
                       "XDG_DATA_HOME": name}
        # The author records the expectations once, in an installation.
        author = pathlib.Path(name) / "X-Plane"
        shutil.copytree(repository, author / "Aircraft/Author" / AIRCRAFT)
        subprocess.run([program, "-C", author, "accept", AIRCRAFT], env=environment, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        (author / "QVRA/Annotations").rename(repository / "annotations")
        output = {}
        for step, script in shell_steps():
            result = subprocess.run(["bash", "-e", "-c", script], cwd=repository, env=environment,
                                    stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
            output[step] = result.stdout
            if result.returncode != 0:
                print(f"FAILED: step '{step}' ended with {result.returncode}:\n{result.stdout}")
                return 1
        faults = [fault for fault, found in [
            ("no step lists the aircraft", any(AIRCRAFT in text for text in output.values())),
            ("'Lint' prints no finding with its file and line",
             re.search(r"^::(error|warning|notice) file=[^,:]+\.obj,line=\d+,title=[\w-]+::\S", output.get("Lint", ""), re.M)),
            ("'Test' writes no report of its tests", "<testcase" in (repository / "tests.xml").read_text()),
        ] if not found]
        print("\n".join(f"FAILED: {fault}" for fault in faults), end="\n" if faults else "")
    return 1 if faults else 0


if shutil.which("jq") is None:
    print("Skipped: jq is not installed")
    sys.exit(77)
sys.exit(main())
