#!/usr/bin/env bash
# Checks that each rule of the list of mutations still changes the source that it names: one that does not protects
# nothing, and nobody notices before scripts/mutate runs whole.
#   tests/layering/check_mutations.sh LIST PROJECT      PROJECT has the sources under the names of the list
#   tests/layering/check_mutations.sh --self-test
set -euo pipefail

check_list() {  # check_list LIST PROJECT: prints what is wrong, and fails when anything is
  local line file rest rules=0 mistakes=0
  while IFS= read -r line; do
    if [[ -z "$line" || "$line" == '#'* ]]; then continue; fi
    rules=$((rules + 1))
    file="$2/${line%% | *}" rest="${line#* | }"
    if [[ ! -f "$file" ]] || sed "${rest% | *}" "$file" 2>/dev/null | cmp -s - "$file"; then
      echo "$1: this rule changes nothing: $line"
      mistakes=$((mistakes + 1))
    fi
  done <"$1"
  echo "$rules rules, $mistakes mistakes"
  ((mistakes == 0 && rules > 0))
}

self_test() {
  local place
  place="$(mktemp -d)"
  trap 'rm -rf "$place"' RETURN
  echo "int most = 3;" >"$place/limits.h"
  printf '%s\n' '# limits' 'limits.h | s/most = 3/most = 4/ | the most' >"$place/right"
  check_list "$place/right" "$place"
  for wrong in 'limits.h | s/most = 5/most = 4/ | another number' 'gone.h | s/most/least/ | another file'; do
    echo "$wrong" >"$place/wrong"
    if check_list "$place/wrong" "$place"; then return 1; fi
  done
  : >"$place/empty"
  if check_list "$place/empty" "$place"; then return 1; fi
}

if [[ "${1:-}" == --self-test ]]; then self_test; else check_list "$1" "$2"; fi
