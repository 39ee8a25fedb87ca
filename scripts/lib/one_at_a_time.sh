# shellcheck shell=bash
# For scripts that build in this clone or write in build/: two of them at once would break each other's builds.
#   source scripts/lib/one_at_a_time.sh     at the start of a script, in the root of the clone
# Waits until no other script of this clone is at work and says so. The lock is held until the script and everything it
# started have ended, however they end. A script that another one calls works under the lock of its caller.

if [[ "${PEDIGREEWATCH_LOCKED_CLONE:-}" != "$PWD" ]] && command -v flock >/dev/null; then
  mkdir -p build
  exec {clone_lock}>>build/.script-at-work
  if ! flock --nonblock "$clone_lock"; then
    holder="$(cat build/.script-at-work)"
    echo "$(basename "$0"): waiting for ${holder:-another script} in this clone to finish" >&2
    flock "$clone_lock"
  fi
  echo "scripts/$(basename "$0")" >build/.script-at-work
  export PEDIGREEWATCH_LOCKED_CLONE="$PWD"
fi
