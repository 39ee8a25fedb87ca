#!/usr/bin/env bash
# Checks the program for Windows: it needs no libraries but those of Windows, and wine runs it on the examples, with the
# line ends of Windows, and on the cases of tests/golden, all with the bytes that it writes on Linux.
#   tests/package/check_windows.sh PROGRAM
# The exit status is 77 when wine is missing.
set -euo pipefail
[[ $# -eq 1 ]] || { sed -n '4s/^# *//p' "${BASH_SOURCE[0]}" >&2; exit 2; }
program="$(realpath "$1")"
sources="$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)"
source "$sources/scripts/lib/run_case.sh"

libraries="$(x86_64-w64-mingw32-objdump -p "$program" | sed -n 's/.*DLL Name: //p')"
for library in $libraries; do
  case "${library,,}" in
    kernel32.dll | msvcrt.dll) ;;
    *) echo "check_windows: $program needs $library, which Windows does not bring" >&2; exit 1 ;;
  esac
done

wine="$(command -v wine64 || command -v wine || true)"
if [[ -z "$wine" ]]; then
  echo "check_windows: wine is missing, the program for Windows was not run (apt-get install wine)"
  exit 77
fi

work="$(mktemp -d)"
export WINEPREFIX="$work/wine" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
leave() {
  "$wine" wineboot --kill >/dev/null 2>&1 || true
  local tries=20  # wine writes its own files while it ends
  until rm -rf "$work" 2>/dev/null || [[ $((tries -= 1)) -eq 0 ]]; do sleep 0.5; done
}
trap leave EXIT
if ! timeout 300 "$wine" cmd /c exit </dev/null >/dev/null 2>&1; then  # makes the folder of wine's own files
  echo "check_windows: wine does not start" >&2
  exit 1
fi

differences=0
compare() {  # compare NAME EXPECTED NOW; nothing is expected where there is no such file
  local expected="$2"
  [[ -e "$expected" ]] || expected=/dev/null
  cmp -s "$expected" "$3" && return
  echo "$1 differs:"
  diff --text "$expected" "$3" | head -n 5 || true
  differences=$((differences + 1))
}

run=0
run_program() {  # in $work/run; leaves $work/console, $work/messages and $status
  local tries
  for tries in 1 2 3; do
    status=0
    (cd "$work/run" && timeout 120 "$wine" "$program") <"$1" >"$work/console" 2>"$work/messages" || status=$?
    # The program says something in every run: wine did not start it, which happens on a busy machine.
    [[ $status -ne 0 && ! -s "$work/console" && ! -s "$work/messages" ]] || break
    echo "check_windows: try $tries: wine ended with status $status without a word"
  done
  run=$((run + 1))
}

for example in "$sources"/examples/*/; do
  rm -rf "$work/run"
  mkdir "$work/run"
  copy_case_inputs "${example%/}" "$work/run"
  sed -i 's/$/\r/' "$work/run"/*
  run_program /dev/null
  [[ $status -eq 0 ]] || { echo "$example: exit status $status"; differences=$((differences + 1)); }
  for report in "$example"/*.out; do
    [[ -e "$work/run/$(basename "$report")" ]] || : >"$work/run/$(basename "$report")"
    compare "$report" "$report" "$work/run/$(basename "$report")"
  done
done

for case in "$sources"/tests/golden/*/; do
  name="$(basename "$case")"
  rm -rf "$work/run"
  mkdir "$work/run"
  copy_case_inputs "${case%/}" "$work/run"
  run_program "$(case_keyboard "${case%/}")"
  expected_status=0
  [[ -e "$case/expected.status" ]] && expected_status="$(cat "$case/expected.status")"
  if [[ $status -ne $expected_status ]]; then
    echo "$name: exit status $status, expected $expected_status"
    differences=$((differences + 1))
  fi
  compare "$name: console" "$case/expected.console" "$work/console"
  compare "$name: standard error" "$case/expected.messages" "$work/messages"
  : >"$work/report"
  while read -r file; do cp "$work/run/$file" "$work/report"; done < <(written_files "${case%/}" "$work/run")
  compare "$name: report" "$case/expected.report" "$work/report"
done

echo "check_windows: $run runs under wine, $differences differences"
[[ $run -gt 0 && $differences -eq 0 ]]
