#!/usr/bin/env bash
# Checks the programs for Windows: they need no libraries but those of Windows, and wine runs them on the examples, with
# the line ends of Windows, and on the cases of tests/golden and tests/golden_tools, all with the bytes of Linux. Then
# runs run.cmd.
#   tests/package/check_windows.sh PROGRAM RUN_CMD      (pedigreewatch-tools.exe stands beside the program)
# The exit status is 77 when wine is missing.
set -euo pipefail
[[ $# -eq 2 ]] || { sed -n '5s/^# *//p' "${BASH_SOURCE[0]}" >&2; exit 2; }
program="$(realpath "$1")"
run_cmd="$(realpath "$2")"
tools="$(dirname "$program")/pedigreewatch-tools.exe"
sources="$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)"
source "$sources/scripts/lib/run_case.sh"

libraries="$(x86_64-w64-mingw32-objdump -p "$program" "$tools" | sed -n 's/.*DLL Name: //p')"
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

printf '#!/bin/sh\nexec "%s" "%s" "$@"\n' "$wine" "$tools" >"$work/tools"
chmod +x "$work/tools"
"$sources/scripts/renew-golden-tools" --program "$work/tools" || differences=$((differences + 1))
# --- run.cmd, in a folder with blanks in its name ---
mkdir "$work/tool"
cp "$program" "$work/tool/pedigreewatch.exe"
cp "$tools" "$work/tool/pedigreewatch-tools.exe"
cp "$run_cmd" "$work/tool/run.cmd"
echo "the desk" >"$work/tool/pedigreewatch-desk.html"

windows_name() { echo "Z:${1//\//\\}"; }

drag_onto_run_cmd() {  # drag_onto_run_cmd [FILE]: leaves $work/shown and $status; nothing dragged: a double click
  local dragged=""
  [[ $# -eq 0 ]] || dragged="$(windows_name "$1")"
  status=0
  timeout 120 "$wine" cmd /c "$(windows_name "$work/tool/run.cmd")" "$dragged" nowait \
    </dev/null >"$work/shown" 2>/dev/null || status=$?
  run=$((run + 1))
}

expect_status() {  # expect_status NAME STATUS
  [[ $status -ne $2 ]] || return 0
  echo "run.cmd on $1: exit status $status, expected $2"
  differences=$((differences + 1))
}

expect_no_file() {  # expect_no_file NAME FILE
  [[ -e "$2" ]] || return 0
  echo "run.cmd on $1 leaves $(basename "$2")"
  differences=$((differences + 1))
}

expect_shown() {  # expect_shown NAME TEXT...
  local text
  for text in "${@:2}"; do
    if ! grep -qF -e "$text" "$work/shown"; then
      echo "run.cmd on $1 does not show \"$text\" but:"
      head -n 20 "$work/shown"
      differences=$((differences + 1))
    fi
  done
}

# run_cmd_on GOLDEN_CASE EXPECTED_STATUS DRAGGED TEXT...: shows these texts, and keeps all that the program says.
run_cmd_on() {
  local case="$sources/tests/golden/$1" folder="$work/my herd"
  rm -rf "$folder"
  mkdir "$folder"
  copy_case_inputs "$case" "$folder"
  drag_onto_run_cmd "$folder$3"
  expect_status "$1" "$2"
  expect_shown "$1" "${@:4}"
  cat "$case/expected.console" >"$work/all_said"
  if [[ -e "$case/expected.messages" ]]; then cat "$case/expected.messages" >>"$work/all_said"; fi
  compare "run.cmd on $1: pedigreewatch-console.txt" "$work/all_said" "$folder/pedigreewatch-console.txt"
}

run_cmd_on textbook_matings_nl 0 "" 'dogs.txt: ' 'The report is "Z:' '.out"' 'The charts are "Z:' 'dogs.html"'
if [[ "$(sed '1,/Pedigree Watch is at work/d' "$work/shown" | wc -l)" -gt 5 ]]; then
  echo "run.cmd shows messages of a run that has none:"
  cat "$work/shown"
  differences=$((differences + 1))
fi
run_cmd_on born_before_parents_en 0 /pedigreewatch.ini "BORN BEFORE FATHER" "father Vroeg" 'my herd\dogs.out"'
run_cmd_on columns_all_en 0 "" "animal: Otto" "of unknown subpopulation: Langhaar" "messages above are about the data"
run_cmd_on unknown_header_words_nl 0 "" "Geen naam gevonden voor kolom" "niet herkend"
run_cmd_on texts_too_long_nl 0 "" "Waarschuwing: lengte van naam van dier"
run_cmd_on unreadable_date_nl 1 "" "$(cat "$sources/tests/golden/unreadable_date_nl/expected.messages")" \
  "there is NO complete report"
run_cmd_on loop_nl 1 "" "programma wordt gestopt" "there is NO complete report"

# A double click opens the desk; a folder without a steer file is told so.
drag_onto_run_cmd
expect_status "nothing" 0
expect_shown "nothing" "The desk opens in your browser" "pedigreewatch-desk.html"
mkdir "$work/empty folder"
drag_onto_run_cmd "$work/empty folder"
expect_status "an empty folder" 1
expect_shown "an empty folder" "There is no pedigreewatch.ini in" "Drag the export"

# An export is prepared, checked and made a report and a page of; one with a question stays as it is.
mkdir "$work/my office"
printf 'Indiv,Sire,Dam,Sex,Born\nrex,NA,NA,reu,2001-12-31\nfly,NA,NA,teef,2002-12-31\n' >"$work/my office/my export.csv"
drag_onto_run_cmd "$work/my office/my export.csv"
expect_status "an export" 0
expect_shown "an export" "Animals       2" "2 animals checked" 'export_pedigreewatch\myexport.out"' 'The charts are "Z:'
for name in myexport.txt myexport.out myexport.html myexport_check.tsv pedigreewatch.ini \
    pedigreewatch-{prepare,check,console}.txt; do
  [[ -s "$work/my office/my export_pedigreewatch/$name" ]] || { echo "run.cmd on an export: no $name"; differences=$((differences + 1)); }
done
printf 'Indiv,Sire,Dam,Sex,Born\nrex,NA,NA,m,2001-12-31\nfly,NA,NA,f,2002-12-31\n' >"$work/my office/asks.csv"
drag_onto_run_cmd "$work/my office/asks.csv"
expect_status "an export with a question" 1
expect_shown "an export with a question" "The species is needed" "Nothing has been made"
expect_no_file "an export with a question" "$work/my office/asks_pedigreewatch"

echo "check_windows: $run runs under wine, $differences differences"
[[ $run -gt 0 && $differences -eq 0 ]]
