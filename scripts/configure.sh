#!/bin/sh
# Configures and builds both trees: build/linux (liborv.so) and build/windows
# (orv.dll, cross-built). Extra arguments go to both CMake configure steps.
set -e
root=$(cd "$(dirname "$0")/.." && pwd)
jobs=$(nproc)
cmake -S "$root" -B "$root/build/linux" -G Ninja "$@" >/dev/null
cmake --build "$root/build/linux" -j "$jobs"
cmake -S "$root" -B "$root/build/windows" -G Ninja \
  -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64-x86_64.cmake" "$@" >/dev/null
cmake --build "$root/build/windows" -j "$jobs"
