# shellcheck shell=bash
# The build for WebAssembly in build/wasm, which the desk and the comparison of builds share. Libraries of the compiler
# that it makes itself are kept where that is allowed, which may not be where the system keeps them.

build_wasm() {  # build_wasm TARGET...
  if ! [[ -w "$(em-config CACHE)" ]]; then
    export EM_CACHE="$PWD/build/emscripten-cache"
    [[ -d "$EM_CACHE" ]] || cp -r /usr/share/emscripten/cache "$EM_CACHE"
  fi
  # A Node that is not Debian's does not look where Debian keeps the modules of the compiler.
  export NODE_PATH="${NODE_PATH:-/usr/share/nodejs}"
  cmake --preset wasm >/dev/null
  cmake --build --preset wasm --target "$@"
}
