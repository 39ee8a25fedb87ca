# shellcheck shell=bash
# Runs the program on a case folder and gathers what it leaves behind. A case folder is one of tests/golden or
# tests/golden_tools (it has a file `about`, and what it expects in files expected.*) or one of examples/ (it expects the
# report that stands there as NAME.out).

is_golden_case() { [[ -e "$1/about" ]]; }  # is_golden_case FOLDER

# is_case_input FOLDER NAME: whether the run gets this file of the folder.
is_case_input() {
  case "$2" in
    about | arguments | stdin | expected.*) return 1 ;;
    *.out) is_golden_case "$1" ;;
  esac
}

# copy_case_inputs FOLDER TARGET
copy_case_inputs() {
  local file
  for file in "$1"/*; do
    if is_case_input "$1" "$(basename "$file")"; then cp "$file" "$2/"; fi
  done
}

# case_keyboard FOLDER: the file that is typed on the console.
case_keyboard() { if [[ -f "$1/stdin" ]]; then echo "$1/stdin"; else echo /dev/null; fi; }

# run_case FOLDER RESULT SECONDS COMMAND...: leaves RESULT/files, where the command has run on copies of the inputs, and
# RESULT/console, messages and status. The arguments of the case, one on a line, follow those of the command. A run that
# takes longer than SECONDS ends with status 124.
run_case() {
  local folder="$1" result="$2" longest="$3" status=0 arguments=()
  shift 3
  if [[ -f "$folder/arguments" ]]; then mapfile -t arguments <"$folder/arguments"; fi
  rm -rf "$result"
  mkdir -p "$result/files"
  copy_case_inputs "$folder" "$result/files"
  (cd "$result/files" && timeout "$longest" "$@" "${arguments[@]}") <"$(case_keyboard "$folder")" >"$result/console" \
    2>"$result/messages" || status=$?
  echo "$status" >"$result/status"
}

# written_files FOLDER FILES: the names of the files that a run in FILES has made or changed. The last complete report,
# which the run has put aside as NAME.last-complete, is an input under another name.
written_files() {
  local file name
  for file in "$2"/*; do
    name="$(basename "$file")"
    if is_case_input "$1" "$name" && cmp -s "$file" "$1/$name"; then continue; fi
    if [[ "$name" == *.last-complete ]] && cmp -s "$file" "$1/${name%.last-complete}"; then continue; fi
    echo "$name"
  done
}
