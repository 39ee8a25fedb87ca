# shellcheck shell=bash
# How long the parts of a script take: the seconds that pass, and those of the processor.
#   start_part NAME      ends the part before
#   say_parts            ends the last part and says all of them
#   gather_parts         in a script that calls others: their parts are said by it, and not by them

part_lines=() part_name=""

processor_seconds() {  # of everything that this shell has started and that has ended
  local user_system
  user_system="$(times | tail -n 1)"
  awk '{for (i = 1; i <= 2; ++i) {split($i, t, /[ms]/); sum += 60 * t[1] + t[2]} printf "%.0f", sum}' <<<"$user_system"
}

line_of_part() {  # line_of_part NAME SECONDS PROCESSOR_SECONDS
  printf '%-28s %6d s %6d s of processor\n' "$@"
}

end_part() {
  [[ -n "$part_name" ]] || return 0
  part_lines+=("$(line_of_part "$part_name" "$((SECONDS - part_start))" "$(($(processor_seconds) - part_processor))")")
  part_name=""
}

start_part() {
  end_part
  part_name="$1" part_start=$SECONDS part_processor="$(processor_seconds)"
}

gather_parts() {
  gathered_parts="$(mktemp)"
  export PEDIGREEWATCH_PARTS="$gathered_parts"
}

say_parts() {
  end_part
  if [[ -n "${gathered_parts:-}" ]]; then
    cat "$gathered_parts"
    rm -f "$gathered_parts"
    line_of_part "all" "$SECONDS" "$(processor_seconds)"
  elif [[ -n "${PEDIGREEWATCH_PARTS:-}" ]]; then
    printf '%s\n' "${part_lines[@]}" >>"$PEDIGREEWATCH_PARTS"
  else
    printf '%s\n' "${part_lines[@]}"
  fi
}
