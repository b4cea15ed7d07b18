#!/bin/sh
# Round trip of the Debian package made from the build tree BUILD: install it,
# see the system's libblas.so.3 answer with ORV, remove it, see the previous
# choice of the alternative come back. Needs root (or sudo) and dpkg; it
# changes the machine for its duration and puts it back even when it fails.
#   check_deb.sh SOURCE BUILD WORK
set -eu
source_dir=$1 build=$2 work=$3
alternative=libblas.so.3-$(gcc -print-multiarch)
sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo -n"

current() { update-alternatives --query "$alternative" | sed -n 's/^Value: //p'; }
answer() { "$work/system_blas"; }

rm -rf "$work" && mkdir -p "$work"
cpack --config "$build/CPackConfig.cmake" -B "$work" >/dev/null
package=$(ls "$work"/orv_*.deb)
cc -o "$work/system_blas" "$source_dir/tests/install/system_blas.c" \
  -L"/usr/lib/$(gcc -print-multiarch)" -l:libblas.so.3 -ldl

before=$(current)
case "$(answer)" in Calix*) echo "ORV is already the system BLAS: nothing to test" >&2; exit 1 ;; esac

trap '$sudo dpkg -r orv >/dev/null 2>&1 || true' EXIT
$sudo dpkg -i "$package" >/dev/null
case "$(current)" in */orv/libblas.so.3) ;; *) echo "installed, but the alternative is $(current)" >&2; exit 1 ;; esac
case "$(answer)" in Calix*) ;; *) echo "installed, but the system BLAS answered: $(answer)" >&2; exit 1 ;; esac

$sudo dpkg -r orv >/dev/null
trap - EXIT
[ "$(current)" = "$before" ] || { echo "removed, but the alternative is $(current), was $before" >&2; exit 1; }
[ "$(answer)" = "another BLAS" ] || { echo "removed, but ORV still answers" >&2; exit 1; }
echo "package installed, answered and removed; the alternative is back at $before"
