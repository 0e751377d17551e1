#!/usr/bin/env bash
# gnu-parallel.sh X-PLANE-FOLDER OUT-FOLDER [OPTION...]: tests every aircraft of an installation, each in a job of its own, with GNU
# parallel; further options are passed to it, such as --jobs 8 or --sshlogin alpha,beta. Every host must have both folders under the
# same paths, and vorelle-batch; set $VORELLE_BATCH to its path if it is not on the PATH.
# Called again with the same OUT-FOLDER, it processes what is missing. Afterwards OUT-FOLDER has the report of a single run:
# tests.json, tests.xml (JUnit), tests.csv, tests.html.
set -euo pipefail
export LC_ALL=C.UTF-8
if [ $# -lt 2 ] || [ ! -d "$1/Aircraft" ]; then
  echo "usage: ${0##*/} X-PLANE-FOLDER OUT-FOLDER [PARALLEL-OPTION...]" >&2
  exit 2
fi
batch=${VORELLE_BATCH:-vorelle-batch}
installation=$(cd "$1" && pwd)
mkdir -p "$2/parts"
out=$(cd "$2" && pwd)
shift 2

# The list is made once: the log of finished jobs refers to its line numbers.
if [ ! -e "$out/aircraft.txt" ]; then
  "$batch" -C "$installation" list | cut -f 1 | nl -b a -n rz -w 6 >"$out/aircraft.txt.new"
  mv "$out/aircraft.txt.new" "$out/aircraft.txt"
fi

# A job is done if its part exists: 1 and 3 mean failed tests and aircraft that cannot be loaded, which the part records.
# shellcheck disable=SC2016  # the job's own shell expands it
job=$(printf '%q -C %q test --jobs 1 --json %q/{1}.json {2} >%q/{1}.log 2>&1; code=$?; [ $code -le 1 ] || [ $code -eq 3 ] && [ -s %q/{1}.json ]' \
  "$batch" "$installation" "$out/parts" "$out/parts" "$out/parts")
parallel --will-cite --colsep '\t' --joblog "$out/jobs.txt" --resume-failed "$@" "$job" :::: "$out/aircraft.txt" ||
  { echo "${0##*/}: some jobs failed, see $out/jobs.txt; run the same command again to retry them" >&2; exit 3; }

"$batch" merge --json "$out/tests.json" --junit "$out/tests.xml" --csv "$out/tests.csv" --html "$out/tests.html" "$out/parts"
