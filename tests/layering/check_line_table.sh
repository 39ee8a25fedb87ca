#!/usr/bin/env bash
# Checks the table in docs/architecture.md that tells which file computes and which one prints each line of output: every
# file that it names exists under src/, each of its rows names at least one, and each source that says something, in a
# Wording or as a line of the report, stands in one of them.
#   tests/layering/check_line_table.sh DOCUMENT SOURCES
#   tests/layering/check_line_table.sh --self-test
set -euo pipefail

heading="## Where each printed line comes from"

# The rows of the table, without its headings.
rows_of() {
  awk -v heading="$heading" '
    /^## / { is_here = ($0 == heading) }
    is_here && /^\|/ && ++row > 2' "$1"
}

# The sources with texts of their own, without "src/" in front; a comment says nothing to anybody.
speaking_sources() {  # speaking_sources SOURCES
  local file
  while IFS= read -r file; do
    sed 's|//.*||' "$1/$file" | grep -qE '\<(Wording|write_free_line|write_format_line)\>' && echo "$file"
  done < <(cd "$1" && find . -name '*.cpp' | sed 's|^\./||' | sort)
  true
}

check_document() {  # check_document DOCUMENT SOURCES
  local row names name all_names=" " files=0 rows=0 mistakes=0
  while IFS= read -r row; do
    rows=$((rows + 1))
    names="$(grep -oE '[A-Za-z0-9_/.-]+\.(cpp|h)\b' <<<"${row#|*|}" || true)"
    if [[ -z "$names" ]]; then
      echo "$1: this row names no file: $row"
      mistakes=$((mistakes + 1))
    fi
    for name in $names; do
      files=$((files + 1))
      all_names+="${name#src/} "
      [[ -f "$2/${name#src/}" ]] && continue
      echo "$1: there is no $name, named in the row: $row"
      mistakes=$((mistakes + 1))
    done
  done < <(rows_of "$1")
  while IFS= read -r name; do
    [[ "$all_names" == *" $name "* ]] && continue
    echo "$1: $name says something, and no row names it"
    mistakes=$((mistakes + 1))
  done < <(speaking_sources "$2")
  if ((rows == 0)); then echo "$1: no table below \"$heading\""; fi
  echo "$rows rows, $files files named, $mistakes mistakes"
  ((rows > 0 && mistakes == 0))
}

fail() { echo "check_line_table: self-test: $*" >&2; exit 1; }

self_test() {
  local tree
  tree="$(mktemp -d)"
  # shellcheck disable=SC2064
  trap "rm -rf '$tree'" EXIT
  mkdir -p "$tree/src/statistics" "$tree/src/reports"
  touch "$tree/src/statistics/ages.cpp" "$tree/src/reports/ages.cpp" "$tree/src/reports/ages.h"

  write_document() {  # write_document HEADING ROW...
    {
      # shellcheck disable=SC2016
      printf '# A\n\n| Another | table |\n|---|---|\n| `none.cpp` | x |\n\n%s\n\n' "$1"
      printf '| Printed | Computed in | Printed by |\n|---|---|---|\n'
      printf '%s\n' "${@:2}"
    } >"$tree/document.md"
  }
  expect_mistake() {  # expect_mistake TEXT
    local said
    if said="$(check_document "$tree/document.md" "$tree/src")"; then fail "\"$1\" passes"; fi
    [[ "$said" == *"$1"* ]] || fail "expected \"$1\", said: $said"
  }
  # shellcheck disable=SC2016
  local good='| ages (`sheet.cpp` of old) | `statistics/ages.cpp` | `src/reports/ages.cpp`, `reports/ages.h` |'
  write_document "$heading" "$good"
  check_document "$tree/document.md" "$tree/src" >/dev/null || fail "a good table does not pass"
  write_document "## Another heading" "$good"
  expect_mistake "no table below"
  write_document "$heading"
  expect_mistake "no table below"
  # shellcheck disable=SC2016
  write_document "$heading" "$good" '| rates | `genetics/rates.cpp` | `reports/ages.cpp` |'
  expect_mistake "there is no genetics/rates.cpp"
  # shellcheck disable=SC2016
  write_document "$heading" '| litters | `ages.cpp` | |'
  expect_mistake "there is no ages.cpp"
  write_document "$heading" "$good" '| rates | the driver | a writer |'
  expect_mistake "this row names no file"

  expect_unnamed() {  # expect_unnamed LINE: a source that no row names, with that line
    echo "$1" >"$tree/src/statistics/sizes.cpp"
    expect_mistake "statistics/sizes.cpp says something, and no row names it"
  }
  write_document "$heading" "$good"
  expect_unnamed 'constexpr Wording size = {"size", "grootte"};'
  expect_unnamed '  write_free_line(out, {"size"});'
  expect_unnamed '  write_format_line(out, "I8", {size});'
  # shellcheck disable=SC2016
  write_document "$heading" "$good" '| sizes | `statistics/sizes.cpp` | |'
  check_document "$tree/document.md" "$tree/src" >/dev/null || fail "a source that a row names does not pass"
  write_document "$heading" "$good"
  echo 'int size = 0;  // no Wording' >"$tree/src/statistics/sizes.cpp"
  check_document "$tree/document.md" "$tree/src" >/dev/null || fail "a source that says nothing does not pass"
  echo "check_line_table: self-test passed"
}

case "$#${1:-}" in
  1--self-test) self_test ;;
  2*) check_document "$1" "$2" ;;
  *) sed -n '5,6s/^# *//p' "${BASH_SOURCE[0]}" >&2; exit 2 ;;
esac
