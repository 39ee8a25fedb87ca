# Builds the core for WebAssembly, with Debian's emscripten.
include(/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake)

# Exceptions end a run; vectors of 16 bytes are what every browser of the last years has.
set(CMAKE_CXX_FLAGS_INIT "-fexceptions -msimd128")
