#!/bin/sh
# Builds everything and runs every test: Linux natively, Windows under Wine.
set -e
root=$(cd "$(dirname "$0")" && pwd)
"$root/scripts/install-deps.sh"
"$root/scripts/configure.sh" -DORV_BUILD_TESTS=ON
status=0
echo "== Linux tests"
ctest --test-dir "$root/build/linux" --output-on-failure -j 2 || status=1
echo "== Windows tests (Wine)"
ctest --test-dir "$root/build/windows" --output-on-failure -j 2 || status=1
exit $status
