# shellcheck shell=bash
# How long the parts of a script take: the seconds that pass, and those of the processor.
#   start_part NAME      ends the part before
#   say_parts            ends the last part and says all of them

part_lines=() part_name=""

processor_seconds() {  # of everything that this shell has started and that has ended
  local user_system
  user_system="$(times | tail -n 1)"
  awk '{for (i = 1; i <= 2; ++i) {split($i, t, /[ms]/); sum += 60 * t[1] + t[2]} printf "%.0f", sum}' <<<"$user_system"
}

end_part() {
  [[ -n "$part_name" ]] || return 0
  part_lines+=("$(printf '%-28s %6d s %6d s of processor' "$part_name" "$((SECONDS - part_start))" \
    "$(($(processor_seconds) - part_processor))")")
  part_name=""
}

start_part() {
  end_part
  part_name="$1" part_start=$SECONDS part_processor="$(processor_seconds)"
}

say_parts() {
  end_part
  printf '%s\n' "${part_lines[@]}"
}
