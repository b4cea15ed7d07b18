#!/bin/sh
# Main job: builds liborv.so and orv.dll with their example programs, then
# runs the examples (the Windows ones under Wine).
set -e
root=$(cd "$(dirname "$0")" && pwd)
"$root/scripts/install-deps.sh"
"$root/scripts/configure.sh" -DORV_BUILD_TESTS=OFF
for example in orv_example_c orv_example_fortran; do
  echo "== Linux: $example"
  "$root/build/linux/bin/$example"
  echo "== Windows: $example.exe"
  "$root/scripts/wine-run" "$root/build/windows/bin/$example.exe"
done
