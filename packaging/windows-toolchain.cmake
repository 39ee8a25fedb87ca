# Builds the programs for Windows (64 bits) on Linux, with Debian's g++-mingw-w64-x86-64. The companions share their work
# out to threads, which the compiler's library has in its POSIX form alone; what that needs is linked in, so that no
# library of the compiler has to go with the programs.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(toolchain_prefix x86_64-w64-mingw32)
find_program(CMAKE_CXX_COMPILER NAMES ${toolchain_prefix}-g++-posix ${toolchain_prefix}-g++ REQUIRED)
find_program(CMAKE_RC_COMPILER NAMES ${toolchain_prefix}-windres REQUIRED)

set(CMAKE_FIND_ROOT_PATH /usr/${toolchain_prefix})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
