# shellcheck shell=bash
# What scripts/mutate does with broken rules. Each worker has a tree and a build of its own below build/mutants. The core
# is a shared library there, so that a broken rule costs a source to compile and a library to link, and nothing else; a
# constant of a header costs those that name it.
# The limits that a broken rule comes to are those of scripts/mutate.
# shellcheck disable=SC2154

# sums_of TREE: what is in the files that are needed, a line for each.
sums_of() {
  (
    cd "$1" || exit
    { find CMakeLists.txt CMakePresets.json LICENSE README.md src tests docs examples packaging desk/*.ts -type f -print0 \
      2>/dev/null || true; } | xargs -0 -r sha256sum | LC_ALL=C sort
  )
}

# prepare_worker WORKER: its tree is what the sources are now, and built. Compared by content, and a file that differs
# gets the time of now: it may have been edited while an earlier run was building.
prepare_worker() {
  local place="build/mutants/$1" file
  mkdir -p "$place/tree"
  sums_of "$place/tree" >"$place/old"
  sums_of . >"$place/sums"
  while read -r _ file; do rm "$place/tree/$file"; done < <(LC_ALL=C comm -13 "$place/sums" "$place/old")
  while read -r _ file; do
    mkdir -p "$place/tree/$(dirname "$file")"
    cp "$file" "$place/tree/$file"
  done < <(LC_ALL=C comm -23 "$place/sums" "$place/old")
  cmake -S "$place/tree" -B "$place/build" -G Ninja -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS=-O1 \
    -DBUILD_SHARED_LIBS=ON -DCMAKE_LINK_DEPENDS_NO_SHARED=ON -DPEDIGREEWATCH_BENCH=OFF \
    -DPEDIGREEWATCH_JOINED_CORE=OFF >/dev/null
  if ! cmake --build "$place/build" --target pedigreewatch_tests >"$place/log" 2>&1; then
    tail -n 40 "$place/log"
    echo "mutate: the sources do not build, before anything is broken" >&2
    exit 2
  fi
}

# run_tests WORKER FILTER: true when they pass; $place/log has what they said.
run_tests() {
  (
    ulimit -c 0 -t "$processor_seconds" -v "$memory_kilobytes" -f "$file_kilobytes"
    exec timeout --kill-after=10 "$wall_seconds" "build/mutants/$1/build/tests/pedigreewatch_tests" \
      --gtest_fail_fast --gtest_filter="$2"
  ) >"build/mutants/$1/log" 2>&1 </dev/null
}

# check_unbroken WORKERS: all tests pass on these sources, once: a test that fails anyway notices nothing.
check_unbroken() {
  local workers="$1" worker shards=() shard
  if cmp -s build/mutants/passed build/mutants/1/sums; then return; fi
  for ((worker = 1; worker <= workers; ++worker)); do
    GTEST_TOTAL_SHARDS="$workers" GTEST_SHARD_INDEX="$((worker - 1))" run_tests "$worker" '*' &
    shards+=($!)
  done
  for worker in "${!shards[@]}"; do
    shard="${shards[worker]}"
    if ! wait "$shard"; then
      tail -n 40 "build/mutants/$((worker + 1))/log"
      echo "mutate: the tests fail, before anything is broken" >&2
      exit 2
    fi
  done
  cp build/mutants/1/sums build/mutants/passed
}

# suites_in FILE...: the suites of these files of tests as GoogleTest's filter has them, nothing when there are none.
suites_in() {
  { grep -hoE '^TEST(_F|_P)?\(\w+' "$@" 2>/dev/null || true; } |
    sed -E 's/^TEST_P\((.*)/*\/\1.*/; s/^TEST(_F)?\((.*)/\2.*/' | LC_ALL=C sort -u | paste -sd:
}

# suites_of_source TREE FILE: those of the file of tests that mirrors this source.
suites_of_source() { suites_in "$1/$(sed -E 's/^src/tests/; s/\.(h|cpp)$/_test.cpp/' <<<"$2")"; }

# suites_of_room TREE ROOM: those of all its tests.
suites_of_room() {
  local files
  mapfile -t files < <(find "$1/tests" -path "$1/tests/$2/*_test.cpp" -o -path "$1/tests/$2_*_test.cpp")
  [[ ${#files[@]} -eq 0 ]] || suites_in "${files[@]}"
}

# passes_all WORKER FILE: whether all tests pass, up to the first that does not: those of the source first, then those
# of its room, then the others.
passes_all() {
  local tree="build/mutants/$1/tree" own room
  own="$(suites_of_source "$tree" "$2")"
  room="$(suites_of_room "$tree" "$(cut -d/ -f2 <<<"$2")")"
  [[ -z "$own" ]] || run_tests "$1" "$own" || return
  [[ -z "$room" ]] || run_tests "$1" "$room-$own" || return
  run_tests "$1" "-$room"
}

# failed_test LOG: the first that failed, or the one at which the tests came to an end.
failed_test() {
  local failed
  failed="$(sed -nE 's/^\[  FAILED  \] ([^ ,]+).*/\1/p' "$1" | head -n 1)"
  [[ -n "$failed" ]] || failed="$(sed -nE 's/^\[ RUN      \] (.*)/\1/p' "$1" | tail -n 1)"
  echo "$failed"
}

# users_of_constants TREE FILE WHOLE: the sources and tests that name a constant whose value is another one in this header
# than in the whole one. Fails when more than constants differ, or another line of a header names one of them: then
# whatever includes the header may differ.
users_of_constants() {
  local changed names
  changed="$(diff "$3" "$1/$2" | sed -n 's/^< //p')"
  ! grep -qvE '^(inline |static )?constexpr [^()]* = [^()]*;' <<<"$changed" || return 1
  names="$(sed -E 's|//.*||' <<<"$changed" | grep -oE '\w+ = ' | cut -d' ' -f1 | LC_ALL=C sort -u | paste -sd'|')"
  [[ "$(find "$1/src" "$1/tests" -name '*.h' -exec cat {} + | sed -E 's|//.*||' | grep -cwE -e "$names")" -eq \
    "$(wc -l <<<"$changed")" ]] || return 1
  grep -rlwE -e "$names" --include='*.cpp' "$1/src" "$1/tests" || true
}

# judge WORKER RULE: breaks the rule in the worker's tree, sets `outcome`, and mends it again. What is compiled anew goes
# by the times of the files.
judge() {
  local place="build/mutants/$1" file command users
  file="$(file_of "$2")" command="$(command_of "$2")"
  if ! cp -p "$place/tree/$file" "$place/whole" 2>/dev/null; then outcome="does not apply"; return; fi
  if ! sed -i "$command" "$place/tree/$file" 2>/dev/null || cmp -s "$place/tree/$file" "$place/whole"; then
    cp -p "$place/whole" "$place/tree/$file"
    outcome="does not apply"
    return
  fi
  users="$place/tree/$file"
  if [[ "$file" == *.h ]] && users="$(users_of_constants "$place/tree" "$file" "$place/whole")"; then
    touch -r "$place/whole" "$place/tree/$file"
    xargs -r touch <<<"$users"
  else
    users="$place/tree/$file"
  fi
  if ! cmake --build "$place/build" --target pedigreewatch_tests -- -j 1 >"$place/log" 2>&1; then
    outcome="does not build"
    if grep -q "static assertion failed" "$place/log"; then outcome="noticed by a static assertion"; fi
  elif passes_all "$1" "$file"; then
    outcome="survives"
  else
    outcome="noticed by $(failed_test "$place/log")"
  fi
  cp -p "$place/whole" "$place/tree/$file"
  xargs -r touch <<<"$users"
}

# work_off_queue WORKER: takes rules from the queue until it is empty, says each outcome and keeps it.
work_off_queue() {
  local rule started outcome queue=build/mutants/queue
  while rule="$(flock "$queue.lock" sed -i -e '1{w /dev/stdout' -e 'd}' "$queue")" && [[ -n "$rule" ]]; do
    started=$SECONDS
    judge "$1" "$rule"
    echo "$rule: $(description_of "$rule"): $outcome, $((SECONDS - started)) s"
    echo "$outcome: $rule: $(file_of "$rule"): $(description_of "$rule")" >>build/mutants/outcomes
  done
}
