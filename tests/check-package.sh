#!/usr/bin/env bash
# Checks the release archive as a host developer receives it: unpacked into an empty folder, its
# checksums hold, its binaries need nothing beyond Windows (or, on Linux, the C library), its three
# version marks agree with its name, and the x64 host runs from there under Wine against the packaged
# simulated recorders: a probe against each, then the screenshot tour against the Linux one. Whatever
# the run needs and the archive lacks fails it.
# Usage: check-package.sh ARCHIVE WINE_RUN
set -uo pipefail
archive=$(realpath "$1") wine_run=$(realpath "$2")
here=$(cd "$(dirname "$0")" && pwd)

work=$(mktemp -d)
sim_pids=()
trap 'for pid in "${sim_pids[@]}"; do kill "$pid" 2>/dev/null; wait "$pid" 2>/dev/null; done; rm -rf "$work"' EXIT

failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }

package="$work/package"
mkdir "$package" && cd "$package" || exit 1
unzip -q "$archive" || { echo "FAIL: cannot unpack $archive"; exit 1; }
sha256sum --quiet -c SHA256SUMS || fail "the checksums do not match the unpacked files"

# What a host developer needs that the run below cannot show.
for file in INTEGRATING.md include/varcfg/host_api.h reference-host/HostApp.cpp x64/UIStyle.ini \
            x64/varcfg_models.tbl; do
  [ -s "$file" ] || fail "$file is missing"
done
if [ "$(cd x64 && find . -type f | sort)" != "$(cd x86 2>/dev/null && find . -type f | sort)" ]; then
  fail "x86/ does not hold the same files as x64/"
fi

for binary in x64/*.dll x64/*.exe; do
  bash "$here/check-dll-tables.sh" "$binary" x86_64-w64-mingw32-objdump >/dev/null || fail "x64: $binary"
done
for binary in x86/*.dll x86/*.exe; do
  bash "$here/check-dll-tables.sh" "$binary" i686-w64-mingw32-objdump >/dev/null || fail "x86: $binary"
done
needed=$(readelf -d linux/mdvr-sim | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p' | grep -Ev '^(libc|libm|ld-linux-x86-64)\.so' || true)
[ -z "$needed" ] || fail "linux/mdvr-sim needs shared libraries beside the C library: $needed"
for binary in x64/*.dll x64/*.exe x86/*.dll x86/*.exe linux/mdvr-sim; do
  if objdump -h "$binary" 2>/dev/null | grep -q '\.debug_'; then fail "$binary is not stripped"; fi
done

# The guide gives the simulator's limits in the unit its --help gives them.
sim_help=$(linux/mdvr-sim --help)
for limit in idle frame send; do
  grep -Eq -- "--$limit-limit MS .*milliseconds" <<<"$sim_help" || fail "mdvr-sim --help gives --$limit-limit in another unit"
done
tr '\n' ' ' < INTEGRATING.md | grep -Eq -- '--send-limit` \(each in +milliseconds' ||
  fail "INTEGRATING.md does not give the simulator's limits in milliseconds"

# One version: the archive's name, the host's --version, both DLLs' version resources.
version=$(basename "$archive" .zip)
version=${version#libvarcfg_18-}
host_version=$("$wine_run" x64/varcfg-host.exe --version | tr -d '\r')
[ "$host_version" = "varcfg-host $version" ] || fail "varcfg-host --version says '$host_version', the archive $version"
for dll in x64/libvarcfg_18.dll x86/libvarcfg_18.dll; do
  for key in FileVersion ProductVersion; do
    value=$(strings -el "$dll" | grep -A1 -x "$key" | sed -n 2p)
    [ "$value" = "$version" ] || fail "$dll: $key is '$value', the archive $version"
  done
done

# Starts a packaged mdvr-sim (a command line) on a free loopback port and sets port.
start_sim() {
  local out="$work/sim-${#sim_pids[@]}.out"
  "$@" --port 0 >"$out" 2>&1 &
  sim_pids+=($!)
  port=
  for _ in $(seq 100); do
    port=$(tr -d '\r' <"$out" | sed -n 's/^listening on 127\.0\.0\.1:\([0-9]*\)$/\1/p')
    [ -n "$port" ] && return 0
    sleep 0.1
  done
  fail "$* did not start: $(cat "$out")"
  return 1
}

# The version query through the host's request callback, from the folder the archive was unpacked into.
probe() {
  local reply
  reply=$(timeout 60 "$wine_run" x64/varcfg-host.exe --recorder "127.0.0.1:$port" --probe 2>&1 | tr -d '\r')
  grep -qx 'result 1' <<<"$reply" || fail "probe against $1: $reply"
}

linux_port=
if start_sim linux/mdvr-sim; then
  linux_port=$port
  probe linux/mdvr-sim
fi
if start_sim "$wine_run" x64/mdvr-sim.exe; then
  probe x64/mdvr-sim.exe
fi

if [ -n "$linux_port" ]; then
  # The guide's C sample, built from the archive's header alone, shows the panel over TCP.
  if x86_64-w64-mingw32-gcc -std=c99 -Wall -Wextra -Wpedantic -Werror -Iinclude samples/minimal-host.c \
       -o x64/minimal-host.exe -lws2_32 2>"$work/sample.err"; then
    sample=$(cd x64 && timeout 120 "$wine_run" minimal-host.exe "$linux_port" 1000 2>&1 | tr -d '\r')
    grep -Eq '^requests answered: [1-9]' <<<"$sample" || fail "the C sample against linux/mdvr-sim: $sample"
    rm -f x64/minimal-host.exe
  else
    fail "the C sample does not build: $(cat "$work/sample.err")"
  fi

  # The language file, the theme and the DLL are found beside the host, as a deployment has them.
  timeout 300 "$wine_run" x64/varcfg-host.exe --recorder "127.0.0.1:$linux_port" --screenshots shots \
    >"$work/tour.out" 2>"$work/tour.err"
  status=$?
  written=$(tr -d '\r' <"$work/tour.out" | sed -n 's/^\([0-9]*\) screenshots written$/\1/p')
  saved=$(find shots -name '*.png' 2>/dev/null | wc -l)
  if [ "$status" -ne 0 ] || [ -z "$written" ] || [ "$written" != "$saved" ] || [ -s "$work/tour.err" ]; then
    fail "screenshots: status $status, '$written' reported, $saved saved: $(cat "$work/tour.out" "$work/tour.err")"
  else
    # The selected menu button shows the theme's image (rgb 32,118,196), not the built-in colours.
    pixel=$(convert shots/02-network-0-local.png \
              -format '%[fx:int(255*p{120,35}.r)] %[fx:int(255*p{120,35}.g)] %[fx:int(255*p{120,35}.b)]' info:)
    read -r red green blue <<<"${pixel:-0 0 0}"
    if [ $((red - 32)) -lt -8 ] || [ $((red - 32)) -gt 8 ] || [ $((green - 118)) -lt -8 ] ||
       [ $((green - 118)) -gt 8 ] || [ $((blue - 196)) -lt -8 ] || [ $((blue - 196)) -gt 8 ]; then
      fail "the network page's menu button is rgb($pixel), not the theme's blue: Theme/ not found"
    fi
  fi
fi

if [ "$failures" -ne 0 ]; then
  echo "check-package: $failures failures"
  exit 1
fi
echo "check-package: $(basename "$archive") unpacked, checked and run"
