#!/usr/bin/env python3
"""Compares the sample's documents, and what the program detects in it, with an independent computation.

    check_sample.py INSTALLATION                   the tables of the installation's README, and its annotation files
    check_sample.py INSTALLATION PROGRAM...        the detected-data files of vorelle-batch, byte for byte; PROGRAM is the
                                                   command that starts it
"""
import json
import os
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

import expected_detection as expected
import expected_full


def main():
    installation = sys.argv[1]
    if len(sys.argv) > 2:
        program = sys.argv[2:]
        faults = program_faults(installation, program) + full_faults(installation, program)
        faults += vrconfig_faults(installation, program)
    else:
        faults = readme_faults(installation)
    for fault in faults:
        print(fault, file=sys.stderr)
    sys.exit(1 if faults else 0)


def detected_aircraft(installation):
    """Output name and parts by node of each aircraft; None if it cannot be loaded."""
    found = {}
    for acf_path, obj_path in expected.aircraft_of(installation):
        try:
            found[expected.output_name(acf_path)] = expected.detect(obj_path)[1]
        except expected.Unloadable:
            found[expected.output_name(acf_path)] = None
    return found


def program_faults(installation, program):
    faults = []
    with tempfile.TemporaryDirectory() as out:
        result = subprocess.run(
            [*program, "-C", installation, "detect", "--out", out], stdout=subprocess.DEVNULL, check=False
        )
        aircraft = detected_aircraft(installation)
        wanted = 3 if None in aircraft.values() else 0
        if result.returncode != wanted:
            faults.append(f"detect ended with {result.returncode}, not {wanted}")
        for name, by_node in aircraft.items():
            path = os.path.join(out, name)
            text = open(path, encoding="utf-8", newline="").read() if os.path.exists(path) else None
            if text != (None if by_node is None else expected.xml_of(by_node)):
                faults.append(f"{name} differs from the independent computation")
    return faults


def full_faults(installation, program):
    """The scout's controls and its expectations in the full reading."""
    acf = os.path.join(installation, "Aircraft/General Aviation/Vorelle Scout/scout.acf")
    arguments = [*program, "-C", installation]
    listed = subprocess.run([*arguments, "manips", "--full", "--json", "Scout"], stdout=subprocess.PIPE, check=True)
    found = sorted(
        tuple(part[key] for key in ("object", "drawLine", "keyword", "names", "type")) for part in json.loads(listed.stdout)
    )
    faults = [f"the full reading of the scout differs: {control}" for control in set(found) ^ set(expected_full.controls(acf))]
    tested = subprocess.run([*arguments, "test", "--full", "--require-tests", "Scout"], stdout=subprocess.PIPE, check=False)
    if tested.returncode != 0:
        faults.append(f"test --full Scout ended with {tested.returncode}:\n{tested.stdout.decode()}")
    return faults


def vrconfig_faults(installation, program):
    """What 'vrconfig write' makes has neither errors nor warnings, and its blocks have the detected types. The trainer's
    annotations override a type, so one of its blocks has another."""
    names = ["Scout", "Trainer", "Lark"]
    with tempfile.TemporaryDirectory() as folder:
        copy = shutil.copytree(installation, os.path.join(folder, "X-Plane"))
        arguments = [*program, "-C", copy]
        for name in names:
            subprocess.run([*arguments, "vrconfig", "write", "--force", name], stderr=subprocess.DEVNULL, check=True)
        for command in (["vrconfig", "check", *names], ["test", "--vrconfig", "--require-tests", "Scout", "Lark"]):
            result = subprocess.run([*arguments, *command], stdout=subprocess.PIPE, check=False)
            if result.returncode != 0:
                yield f"{command} of what was written ended with {result.returncode}:\n{result.stdout.decode()}"


def readme_faults(installation):
    with open(os.path.join(installation, "README.md"), encoding="utf-8") as file:
        rows = [
            [cell.strip() for cell in line.strip("|").split("|")]
            for line in file.read().splitlines()
            if line[:1] == "|"
        ]
    parts = [row for row in rows if len(row) == 6 and row[1].isdigit()]
    faults = []
    for name, by_node in detected_aircraft(installation).items():
        if by_node and any(by_node.values()):
            own = [row for row in parts if os.path.splitext(row[0])[0] + ".xml" == name]
            detected = {
                (str(node), str(place)): part.type for node in by_node for place, part in enumerate(by_node[node])
            }
            faults += [
                f"{name}: {fault}" for fault in type_faults([row for row in own if row[5] not in TYPES], detected)
            ]
            failing = {tuple(row[1:3]): tuple(row[4:6]) for row in own if row[5] in TYPES}
            counts = next([int(cell) for cell in row[1:4]] for row in rows if name in row[0])
            path = os.path.join(installation, "QVRA", "Annotations", name)
            faults += [f"{name}: {fault}" for fault in test_faults(path, detected, failing, counts)]
    return faults


def type_faults(rows, detected):
    """Parts in the table have the types given there; all others are None."""
    listed = {tuple(row[1:3]): row[4] for row in rows}
    for key in sorted(listed.keys() | detected.keys()):
        if listed.get(key, "None") != detected.get(key):
            yield f"part {key} is {detected.get(key)}, not {listed.get(key, 'None')}"


def test_faults(path, detected, failing, counts):
    """Exactly the expectations fail that the table says."""
    total, failed = 0, {}
    for record in ElementTree.parse(path).getroot().iter("Override"):
        key, wanted = (record.findtext("NodeId"), record.findtext("PartId")), record.findtext("InteractionTypeTest")
        wanted = "Tap" if wanted == "Push" else wanted
        if wanted and key in detected:
            total += 1
            if detected[key] != wanted:
                failed[key] = (wanted, detected[key])
    if failed != failing:
        yield f"fails {failed}, not {failing}"
    if counts != [total, total - len(failed), len(failed)]:
        yield f"has {total} tests, {len(failed)} of which fail, not {counts}"


TYPES = ("None", "Tap", "Twist", "Move", "Radio", "YokePart", "YokePrimary")

if __name__ == "__main__":
    main()
