#!/usr/bin/env bash
#SBATCH --job-name=vorelle-tests --cpus-per-task=1 --mem=2G --time=00:15:00
# slurm-array.sh X-PLANE-FOLDER OUT-FOLDER: tests every aircraft of an installation as a task of a Slurm array, and merges
# the parts after all tasks have ended. Every node must have both folders and vorelle-batch; set $VORELLE_BATCH to its path if it
# is not on the PATH. Afterwards OUT-FOLDER has the report of a single run: tests.json, tests.xml (JUnit), tests.csv, tests.html.
# Called again with the same OUT-FOLDER, it submits only the aircraft whose part is missing.
set -euo pipefail
export LC_ALL=C.UTF-8
if [ $# -ne 2 ] || [ ! -d "$1/Aircraft" ]; then
  echo "usage: ${0##*/} X-PLANE-FOLDER OUT-FOLDER" >&2
  exit 2
fi
batch=${VORELLE_BATCH:-vorelle-batch}
installation=$(cd "$1" && pwd)
mkdir -p "$2/parts"
out=$(cd "$2" && pwd)
longest=${VORELLE_ARRAY:-1000} # Slurm's default limit is 1000 tasks per array

submit() {
  local number aircraft arrays=() id
  [ -e "$out/aircraft.txt" ] || "$batch" -C "$installation" list | cut -f 1 | nl -b a -n rz -w 6 >"$out/aircraft.txt"
  while IFS=$'\t' read -r number aircraft; do
    [ -s "$out/parts/$number.json" ] || printf '%s\t%s\n' "$number" "$aircraft"
  done <"$out/aircraft.txt" >"$out/missing.txt"
  rm -f "$out"/array.*.txt
  [ ! -s "$out/missing.txt" ] || split -d -l "$longest" --additional-suffix=.txt "$out/missing.txt" "$out/array."
  for list in "$out"/array.*.txt; do
    [ -e "$list" ] || continue
    # Slurm runs a copy of this file, which finds its lines by the list.
    id=$(sbatch --parsable --array="1-$(wc -l <"$list")" --output="$out/parts/slurm-%A-%a.log" \
      --export="ALL,VORELLE_LIST=$list" "$0" "$installation" "$out")
    arrays+=("${id%%;*}")
  done
  sbatch --parsable ${arrays[0]+--dependency="afterany:$(IFS=:; echo "${arrays[*]}")"} --output="$out/merge.log" \
    --export=ALL,VORELLE_MERGE=1 "$0" "$installation" "$out"
}

test_one() {
  local number aircraft code=0
  IFS=$'\t' read -r number aircraft < <(sed -n "${SLURM_ARRAY_TASK_ID}p" "$VORELLE_LIST")
  "$batch" -C "$installation" test --jobs 1 --json "$out/parts/$number.json" "$aircraft" || code=$?
  # 1 and 3 mean failed tests and aircraft that cannot be loaded, which the part records.
  [ -s "$out/parts/$number.json" ] || exit "$code"
}

merge() {
  local number aircraft
  while IFS=$'\t' read -r number aircraft; do
    [ -s "$out/parts/$number.json" ] || { echo "no part of $aircraft; run the same command again to test it" >&2; exit 3; }
  done <"$out/aircraft.txt"
  "$batch" merge --json "$out/tests.json" --junit "$out/tests.xml" --csv "$out/tests.csv" --html "$out/tests.html" "$out/parts"
}

if [ -n "${VORELLE_MERGE-}" ]; then
  merge
elif [ -n "${SLURM_ARRAY_TASK_ID-}" ]; then
  test_one
else
  submit
fi
