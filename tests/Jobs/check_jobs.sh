#!/usr/bin/env bash
# check_jobs.sh parallel|slurm PROGRAM: runs a job script on the sample and compares its report with that of a single run. With
# GNU parallel one job is killed while it runs, then retried; a script that runs tasks one by one replaces Slurm's sbatch.
set -euo pipefail
engine=$1 real=$(readlink -f "$2")
root=$(dirname "$(dirname "$(dirname "$(readlink -f "$0")")")")
[ "$engine" = slurm ] || command -v parallel >/dev/null || { echo "Skipped: GNU parallel is not installed"; exit 77; }

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export folder real XDG_DATA_HOME="$folder/data" PATH="$folder/bin:$PATH"
mkdir -p "$folder/bin" "$folder/started"
cp -r "$root/sample" "$folder/installation"
cd "$folder"

fail() {
  echo "FAILED: $*" >&2
  cat parallel.log out/jobs.txt 2>/dev/null >&2 || true
  exit 1
}

wait_until() { # COMMAND...
  local tries
  for ((tries = 0; tries < 600; ++tries)); do
    "$@" && return
    sleep 0.1
  done
  fail "timeout, waited for: $*"
}

expect_code() { # CODE COMMAND...
  local code=0
  "${@:2}" || code=$?
  [ "$code" = "$1" ] || fail "exit code $code instead of $1: ${*:2}"
}

# Replaces the program and records which process tests which aircraft.
cat >bin/vorelle-batch <<'END'
#!/usr/bin/env bash
for last; do :; done
[[ " $* " != *" test "* ]] || echo $$ >>"$folder/started/$(basename "$last")"
[[ $(basename "$last") != LARK.ACF || ! -p $folder/hold ]] || read -r _ <"$folder/hold" # nobody writes
exec "$real" "$@"
END
cat >bin/sbatch <<'END'
#!/usr/bin/env bash
array=
while [[ $1 == --* ]]; do
  case $1 in
    --array=1-*) array=${1#--array=1-} ;;
    --export=ALL,*) export "${1#--export=ALL,}" ;;
  esac
  shift
done
for ((task = 1; task <= ${array:-1}; ++task)); do
  ${array:+env SLURM_ARRAY_TASK_ID=$task} bash "$@" >>"$folder/sbatch.log" 2>&1 || true
done
echo 17
END
chmod +x bin/*

"$real" -C installation test --json s.json --junit s.xml --csv s.csv --html s.html >single.txt 2>single.err && fail "the sample's failing tests passed"

compare() {
  local form
  for form in json xml csv html; do cmp "s.$form" "out/tests.$form" || fail "the merged $form differs"; done
}

run_parallel() { # into parallel.log; bash keeps the exit code
  bash "$root/scripts/jobs/gnu-parallel.sh" installation out --jobs 2 >merged.txt 2>parallel.log
}

check_parallel() {
  mkfifo hold
  run_parallel &
  local running=$!
  wait_until test -s started/LARK.ACF
  wait_until test -s out/parts/000001.json
  kill -KILL "$(cat started/LARK.ACF)"
  expect_code 3 wait "$running"
  [ ! -e out/tests.json ] || fail "a report lacks an aircraft"
  rm hold
  expect_code 1 run_parallel # as a single run
  cmp single.txt merged.txt || fail "the table differs"
  [ "$(wc -l <started/LARK.ACF) $(wc -l <started/trainer.acf)" = "2 1" ] || fail "not exactly the killed job was retried"
}

check_slurm() {
  local first=out/parts/000001.json
  VORELLE_ARRAY=2 bash "$root/scripts/jobs/slurm-array.sh" installation out >/dev/null
  compare
  rm "$first" out/tests.*
  bash "$root/scripts/jobs/slurm-array.sh" installation out >/dev/null
  [ "$(cat started/* | wc -l)" = 5 ] || fail "not exactly the missing part was made again"
}

"check_$engine"
compare
