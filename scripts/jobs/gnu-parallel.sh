#!/usr/bin/env bash
# gnu-parallel.sh X-PLANE-FOLDER OUT-FOLDER [OPTION...]: tests every aircraft of an installation, each in a job of its own, with GNU
# parallel; further options go to it, such as --jobs 8 or --sshlogin alpha,beta. Hosts have to see both folders under the same
# paths and have vorelle-batch, whose place $VORELLE_BATCH tells where it is not on the PATH.
# Called again with the same OUT-FOLDER, it takes up what was not done. OUT-FOLDER then holds the report of a single run:
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

# The list is made once: the log of done jobs goes by its line numbers.
if [ ! -e "$out/aircraft.txt" ]; then
  "$batch" -C "$installation" list | cut -f 1 | nl -b a -n rz -w 6 >"$out/aircraft.txt.new"
  mv "$out/aircraft.txt.new" "$out/aircraft.txt"
fi

# A job is done when its part is there: 1 and 3 tell of failed tests and of aircraft that cannot be loaded, which a part holds.
# shellcheck disable=SC2016  # the job's own shell expands it
job=$(printf '%q -C %q test --jobs 1 --json %q/{1}.json {2} >%q/{1}.log 2>&1; code=$?; [ $code -le 1 ] || [ $code -eq 3 ] && [ -s %q/{1}.json ]' \
  "$batch" "$installation" "$out/parts" "$out/parts" "$out/parts")
parallel --will-cite --colsep '\t' --joblog "$out/jobs.txt" --resume-failed "$@" "$job" :::: "$out/aircraft.txt" ||
  { echo "${0##*/}: some jobs were not done, see $out/jobs.txt; the same call takes them up again" >&2; exit 3; }

"$batch" merge --json "$out/tests.json" --junit "$out/tests.xml" --csv "$out/tests.csv" --html "$out/tests.html" "$out/parts"
