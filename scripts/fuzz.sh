#!/usr/bin/env bash
# fuzz.sh [SECONDS [TARGET...]]: builds the fuzz targets with clang, libFuzzer and the address and undefined-behaviour sanitizers,
# and runs each for SECONDS (default: 60), two at a time. A failing input is written to build/fuzz/finds; add it to the target's
# corpus together with the fix. Inputs that reach new code are kept in build/fuzz/grown.
set -euo pipefail
root=$(dirname "$(dirname "$(readlink -f "$0")")")
source "$root/scripts/packages.sh"
seconds=${1:-60}
shift || true

install_packages "${tool_packages[@]}" "${library_packages[@]}" clang libclang-rt-dev
build=$root/build/fuzz
say "Building in build/fuzz"
quietly cmake -S "$root" -B "$build" -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=Dev -DVORELLE_FUZZ=ON \
  -DVORELLE_TESTS=OFF -DVORELLE_WINDOW=OFF -DVORELLE_SANITIZE=address,undefined,fuzzer-no-link || fail "configuring failed"
targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
  for source in "$root"/fuzz/*Fuzz.cpp; do targets+=("$(basename "$source" Fuzz.cpp)"); done
fi
quietly cmake --build "$build" --target "${targets[@]/%/Fuzz}" || fail "the build failed"

fuzz_one() { # TARGET
  local grown=$build/grown/$1 finds=$build/finds/$1-
  mkdir -p "$grown" "$build/finds" "$build/logs"
  if "$build/fuzz/$1Fuzz" "$grown" "$root/fuzz/corpus/$1" -dict="$root/fuzz/$1.dict" -max_total_time="$seconds" \
    -timeout=20 -rss_limit_mb=4096 -max_len=65536 -artifact_prefix="$finds" -print_final_stats=1 \
    >"$build/logs/$1.log" 2>&1; then
    printf '%-12s %s executions, no failure\n' "$1" "$(sed -n 's/^stat::number_of_executed_units: *//p' "$build/logs/$1.log")"
  else
    printf '%-12s FAILED: see build/fuzz/logs/%s.log\n' "$1" "$1"
    return 1
  fi
}
export -f fuzz_one
export LSAN_OPTIONS=suppressions=$root/cmake/lsan.supp:print_suppressions=0
export build root seconds
say "Fuzzing ${#targets[@]} targets for $seconds seconds each"
printf '%s\n' "${targets[@]}" | xargs -P 2 -I{} bash -c 'fuzz_one {}' || fail "inputs failed; they are in build/fuzz/finds"
