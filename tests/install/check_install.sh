#!/bin/sh
# Installs the build tree BUILD into a fresh prefix and builds the consumer
# program against it twice, through find_package(ORV) and through
# pkg-config, then runs both. Both packages name the vendor the installed
# orvinfo reports as the one the tuned paths are for. A cross build (TOOLCHAIN set) is compiled with
# the toolchain's C compiler and run through EMULATOR.
#   check_install.sh SOURCE BUILD WORK [TOOLCHAIN EMULATOR]
set -eu
source_dir=$1 build=$2 work=$3 toolchain=${4:-} emulator=${5:-}
prefix=$work/prefix
rm -rf "$work"
cmake --install "$build" --prefix "$prefix" >/dev/null

cmake_args=""
cc=cc
if [ -n "$toolchain" ]; then
  cmake_args="-DCMAKE_TOOLCHAIN_FILE=$toolchain"
  cc=x86_64-w64-mingw32-gcc-posix
fi
libdir=$(cd "$(dirname "$(find "$prefix" -name orv.pc)")/.." && pwd)

# The CMake package.
vendor=$($emulator "$prefix/bin/orvinfo"* | sed -n 's/^tuned for: *//p' | tr -d '\r')
[ -n "$vendor" ]
cmake -S "$source_dir/tests/install/consumer" -B "$work/cmake" -G Ninja $cmake_args \
  -DORV_DIR="$libdir/cmake/ORV" >"$work/cmake.log"
grep -q "tuned for: $vendor\$" "$work/cmake.log"
cmake --build "$work/cmake" >/dev/null

# The pkg-config file.
export PKG_CONFIG_PATH="$libdir/pkgconfig"
[ "$(pkg-config --variable=reference_vendor orv)" = "$vendor" ]
flags=$(pkg-config --cflags --libs orv)
mkdir -p "$work/pc"
exe=$work/pc/consumer
[ -n "$toolchain" ] && exe=$exe.exe
$cc -o "$exe" "$source_dir/tests/install/consumer/consumer.c" $flags

if [ -n "$toolchain" ]; then
  # The DLL is found beside the program.
  for dir in "$work/cmake" "$work/pc"; do cp "$prefix/bin/orv.dll" "$dir/"; done
  "$emulator" "$work/cmake/consumer.exe"
  "$emulator" "$exe"
else
  LD_LIBRARY_PATH="$libdir" "$work/cmake/consumer"
  LD_LIBRARY_PATH="$libdir" "$exe"
fi
