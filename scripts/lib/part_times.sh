# shellcheck shell=bash
# How long the parts of a script take: the seconds that pass, and those of the processor.
#   start_part NAME      ends the part before
#   say_parts            ends the last part and says all of them
#   gather_parts         in a script that calls others: their parts are said by it, and not by them

part_lines=() part_name=""

# Sets processor_seconds to those of everything that this shell has started and that has ended. Not by a substitution: a
# shell of its own would not know them.
read_processor_seconds() {
  local said minutes_and_seconds
  said="$(mktemp)"
  LC_ALL=C times >"$said"
  minutes_and_seconds="$(tail -n 1 "$said")"
  rm -f "$said"
  processor_seconds="$(awk '{for (i = 1; i <= 2; ++i) {split($i, t, /[ms]/); sum += 60 * t[1] + t[2]} printf "%.0f", sum}' \
    <<<"$minutes_and_seconds")"
}

line_of_part() {  # line_of_part NAME SECONDS PROCESSOR_SECONDS
  printf '%-28s %6d s %6d s of processor\n' "$@"
}

end_part() {
  [[ -n "$part_name" ]] || return 0
  read_processor_seconds
  part_lines+=("$(line_of_part "$part_name" "$((SECONDS - part_start))" "$((processor_seconds - part_processor))")")
  part_name=""
}

start_part() {
  end_part
  read_processor_seconds
  part_name="$1" part_start=$SECONDS part_processor="$processor_seconds"
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
    read_processor_seconds
    line_of_part "all" "$SECONDS" "$processor_seconds"
  elif [[ -n "${PEDIGREEWATCH_PARTS:-}" ]]; then
    printf '%s\n' "${part_lines[@]}" >>"$PEDIGREEWATCH_PARTS"
  else
    printf '%s\n' "${part_lines[@]}"
  fi
}
