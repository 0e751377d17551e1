#!/usr/bin/env bash
# check.sh [--all]: checks formatting, shell scripts and includes, then runs clang-tidy on the sources that differ from the
# branch main (--all: on all sources). Nothing is built. The clang tools must be those of Debian 12, as other versions format and
# warn differently; with another version both steps are left out, and the output says so.
set -euo pipefail
root=$(dirname "$(dirname "$(readlink -f "$0")")")
cd "$root"
source scripts/packages.sh
clang_version=14

case "${1-}" in
  '') all=no ;;
  --all) all=yes ;;
  *) fail "usage: check.sh [--all]" ;;
esac

install_packages shellcheck clang-format clang-tidy python3 "${tool_packages[@]}" "${library_packages[@]}"
failed=() left_out=()

is_expected_version() { # TOOL
  "$1" --version | grep -q "version $clang_version\." || { left_out+=("$1 (not version $clang_version)"); return 1; }
}

check() { # NAME COMMAND...
  say "Checking: $1"
  "${@:2}" || failed+=("$1")
}

sources() { git ls-files -- 'src/*.cpp' 'src/*.h' 'tests/*.cpp' 'tests/*.h' 'bench/*.cpp' 'bench/*.h' 'fuzz/*.cpp' 'fuzz/*.h' 'soak/*.cpp'; }
shell_scripts() { git ls-files -- '*.sh' .ci/run packaging/vorelle-batch.bash packaging/start-in-x-plane scripts/jobs; }

check_format() { sources | xargs clang-format --dry-run -Werror; }
check_shell() { shell_scripts | xargs shellcheck -x; }

# Sources of this system that differ from main, including the working tree.
changed_sources() {
  if [ $all = yes ]; then sources; else { git diff --name-only "$(git merge-base HEAD main)"; git ls-files -o --exclude-standard; } | sort -u; fi |
    grep -E '^(src|tests)/.*\.cpp$' | grep -vE '(Windows|WindowsTest|D3D11)\.cpp$|/(D3D11|Windows)/' || true
}

check_tidy() {
  local files
  mapfile -t files < <(changed_sources | while IFS= read -r file; do [ ! -f "$file" ] || echo "$file"; done)
  [ ${#files[@]} -gt 0 ] || { echo "no source differs from main"; return 0; }
  install_packages "${test_packages[@]}"
  quietly cmake --preset dev -B build/check -DVORELLE_PRECOMPILE=OFF || return 1
  printf '%s\n' "${files[@]}" | xargs -P "$(nproc)" -n 4 clang-tidy -p build/check --quiet --warnings-as-errors='*' 2>/dev/null
}

if is_expected_version clang-format; then check "format" check_format; fi
check "shell scripts" check_shell
check "includes" python3 -B scripts/check-includes.py
if is_expected_version clang-tidy; then check "clang-tidy" check_tidy; fi
[ ${#left_out[@]} -eq 0 ] || say "Left out: ${left_out[*]}"
[ ${#failed[@]} -eq 0 ] || fail "failed: ${failed[*]}"
say "All checks passed"
