# shellcheck shell=bash
# The build in build/release, which demo, test, bench and lint share. Whoever needs it configures it in the same way, so
# that nothing is compiled twice and no script switches off what the other one runs.

configure_preset() {  # configure_preset PRESET
  local bench=ON
  if [[ "$1" == sanitize ]]; then bench=OFF; fi  # its times would say nothing
  cmake --preset "$1" -DPEDIGREEWATCH_WERROR=ON -DPEDIGREEWATCH_TESTS=ON -DPEDIGREEWATCH_BENCH="$bench" >/dev/null
}

build_release() {  # build_release TARGET...
  configure_preset release
  cmake --build --preset release --target "$@"
}
