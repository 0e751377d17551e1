# shellcheck shell=bash
# Sourced by run.sh: keeps a copy of a folder up to date without overwriting changes of the user.

# refresh_working_copy FROM TO: brings TO up to date with FROM. A file that the user has changed in TO stays as it is;
# TO.original has the files as they were copied.
refresh_working_copy() {
  local from=$1 to=$2 original=$2.original file
  mkdir -p "$to" "$original"
  while IFS= read -r -d '' file; do
    [ -e "$from/$file" ] || { ! cmp -s "$to/$file" "$original/$file" || rm -f "$to/$file"; rm -f "$original/$file"; }
  done < <(cd "$original" && find . -type f -printf '%P\0')
  while IFS= read -r -d '' file; do
    [ ! -e "$to/$file" ] || cmp -s "$to/$file" "$original/$file" || cmp -s "$to/$file" "$from/$file" || continue
    mkdir -p "$to/$(dirname "$file")" "$original/$(dirname "$file")"
    cp "$from/$file" "$to/$file"
    cp "$from/$file" "$original/$file"
  done < <(cd "$from" && find . -type f -printf '%P\0')
}
