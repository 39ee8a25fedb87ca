#!/usr/bin/env bash
# Checks that includes run one way: a file in a room of src/ includes files of its own room and of lower ones only. Says
# each include that runs upwards, also one in angle brackets.
#   tests/layering/check_includes.sh SOURCES      SOURCES has the rooms as folders
#   tests/layering/check_includes.sh --self-test  on a small tree with mistakes in it
set -euo pipefail

rooms=(core text sheets pedigree corrections intake checks genetics statistics diversity matings animals planning standing forecast reports control tables page desk tools)  # the lowest first

level_of() {  # level_of ROOM: its place among the rooms, nothing when it is none
  local i
  for i in "${!rooms[@]}"; do
    if [[ "${rooms[i]}" == "$1" ]]; then echo "$i"; fi
  done
}

check_tree() {  # check_tree SOURCES: prints what is wrong, and fails when anything is
  local file room number included level own mistakes=0 includes=0 any_room
  any_room="$(IFS='|' && echo "${rooms[*]}")"
  while IFS=: read -r file number included; do
    room="${file%%/*}"
    own="$(level_of "$room")"
    if [[ -z "$own" ]]; then
      echo "src/$file: $room is no room, they are: ${rooms[*]}"
      mistakes=$((mistakes + 1))
      continue
    fi
    includes=$((includes + 1))
    included="${included#*[<\"]}"
    included="${included%%[>\"]*}"
    level="$(level_of "${included%%/*}")"
    if [[ -z "$level" || "$included" != */* ]]; then
      echo "src/$file:$number: \"$included\" does not name a room (write \"ROOM/FILE\")"
    elif ((level > own)); then
      echo "src/$file:$number: \"$included\" is above $room"
    else
      continue
    fi
    mistakes=$((mistakes + 1))
  done < <(cd "$1" && grep -rnE --include='*.h' --include='*.cpp' \
    "^[[:space:]]*#[[:space:]]*include[[:space:]]*(\"|<($any_room)/)" . | sed 's|^\./||' | sort)
  echo "$includes includes, $mistakes mistakes"
  ((includes > 0 && mistakes == 0))
}

fail() { echo "check_includes: self-test: $*" >&2; exit 1; }

self_test() {
  local tree
  tree="$(mktemp -d)"
  # shellcheck disable=SC2064
  trap "rm -rf '$tree'" EXIT
  if check_tree "$tree" >/dev/null; then fail "a tree without any include passes"; fi

  mkdir "$tree"/{core,genetics,control}
  printf '#include <vector>\n#include <sys/resource.h>\n' >"$tree/core/text.h"
  echo '#include "core/text.h"' >"$tree/core/text.cpp"
  printf '#include "genetics/rates.h"\n\n#include "core/text.h"\n' >"$tree/genetics/rates.cpp"
  echo '#include "genetics/rates.h"' >"$tree/control/main.cpp"
  check_tree "$tree" >/dev/null || fail "a tree in order does not pass"

  expect_mistake() {  # expect_mistake FILE LINE TEXT: the line alone makes the tree wrong, and is named
    local said
    mkdir -p "$(dirname "$tree/$1")"
    echo "$2" >"$tree/$1"
    if said="$(check_tree "$tree")"; then fail "$2 in $1 passes"; fi
    [[ "$said" == *"$3"* ]] || fail "$2 in $1 is not named: $said"
    rm "$tree/$1"
  }
  expect_mistake core/up.h '#include "control/driver.h"' 'src/core/up.h:1: "control/driver.h" is above core'
  expect_mistake genetics/up.cpp '  #  include "statistics/ages.h"  // why' '"statistics/ages.h" is above genetics'
  expect_mistake core/angle.cpp '#include <control/driver.h>' 'src/core/angle.cpp:1: "control/driver.h" is above core'
  expect_mistake core/bare.cpp '#include "text.h"' '"text.h" does not name a room'
  expect_mistake core/other.cpp '#include "attic/text.h"' '"attic/text.h" does not name a room'
  expect_mistake attic/new.cpp '#include "core/text.h"' 'attic is no room'
  check_tree "$tree" >/dev/null || fail "the tree is not in order again"
  echo "check_includes: self-test passed"
}

case "${1:-}" in
  --self-test) self_test ;;
  "") sed -n '4,5s/^# *//p' "${BASH_SOURCE[0]}" >&2; exit 2 ;;
  *) check_tree "$1" ;;
esac
