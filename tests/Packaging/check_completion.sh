#!/usr/bin/env bash
# check_completion.sh PROGRAM: completes command lines on the sample and compares the sorted candidates.
set -uo pipefail
root=$(dirname "$(dirname "$(dirname "$(readlink -f "$0")")")")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
ln -s "$(readlink -f "$1")" "$folder/vorelle-batch"
export PATH="$folder:$PATH" XDG_DATA_HOME="$folder/data"
cd "$root/sample" || exit 1
source "$root/packaging/vorelle-batch.bash"
failed=0

# The typed words, the last one incomplete; after --, the expected candidates, separated by '|'.
expect() {
  local typed=() offered
  while [ "$1" != -- ]; do typed+=("$1"); shift; done
  COMP_WORDS=(vorelle-batch "${typed[@]}") COMP_CWORD=${#typed[@]}
  _vorelle_batch
  offered=$(printf '%s\n' "${COMPREPLY[@]}" | LC_ALL=C sort | tr '\n' '|')
  [ "$offered" = "$2|" ] || { echo "FAILED: '${typed[*]}' completes to '$offered', not '$2|'" >&2; failed=1; }
}

expect li -- 'lint|list'
expect detect --un -- '--untextured'
expect -C . detect -- 'detect'
expect test --j -- '--jobs|--json|--junit'
expect lint '' -- 'Lark\ 15.2|Unpainted\ Prototype|Vorelle\ Scout|Vorelle\ Trainer'
expect lint V -- 'Vorelle\ Scout|Vorelle\ Trainer'
expect lint '"Lark 1' -- 'Lark 15.2'
expect lint 'Vorelle\ T' -- 'Vorelle\ Trainer'
expect lint Aircraft/S -- 'Aircraft/Sailplanes/Lark\ 15.2/LARK.ACF'
expect list '' -- ''
expect -C "$root/docs" lint '' -- ''
expect test --json '../LIC' -- '../LICENSE'
expect lint --json L -- 'Lark\ 15.2'
expect detect -j '' -- ''
expect detect --out '../pack' -- '../packaging'
expect compare '../pack' -- '../packaging'
expect explain 'Lark\ 15.2' 1 -- '16,0|17,0|18,0|19,0'
expect vr -- 'vrconfig'
expect vrconfig c -- 'check'
expect vrconfig check --j -- '--jobs|--json'
expect vrconfig check --json L -- 'Lark\ 15.2'
expect vrconfig write --m -- '--merge'
expect vrconfig write --force L -- 'Lark\ 15.2'
# shellcheck disable=SC2016  # it must not be expanded
expect explain '$(touch broken)`touch broken`' '' -- ''
[ ! -e broken ] || { echo "FAILED: a word was executed" >&2; failed=1; }
exit $failed
