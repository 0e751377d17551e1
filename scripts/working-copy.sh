# shellcheck shell=bash
# Sourced by run.sh: keeps a copy of a folder without taking anything of a person's away.

# refresh_working_copy FROM TO: brings TO up to date with FROM. A file that was changed in TO since it was laid there
# stays as it is; TO.laid remembers what was laid.
refresh_working_copy() {
  local from=$1 to=$2 laid=$2.laid file
  mkdir -p "$to" "$laid"
  while IFS= read -r -d '' file; do
    [ -e "$from/$file" ] || { ! cmp -s "$to/$file" "$laid/$file" || rm -f "$to/$file"; rm -f "$laid/$file"; }
  done < <(cd "$laid" && find . -type f -printf '%P\0')
  while IFS= read -r -d '' file; do
    [ ! -e "$to/$file" ] || cmp -s "$to/$file" "$laid/$file" || continue
    mkdir -p "$to/$(dirname "$file")" "$laid/$(dirname "$file")"
    cp "$from/$file" "$to/$file"
    cp "$from/$file" "$laid/$file"
  done < <(cd "$from" && find . -type f -printf '%P\0')
}
