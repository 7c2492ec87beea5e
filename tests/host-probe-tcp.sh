#!/usr/bin/env bash
# varcfg-host --probe against the native mdvr-sim on a loopback port: the recorder answers; the
# recorder is too slow for the host's time-out; nobody listens on the port; the host name is unknown.
# The probe sends the version query through the request callback the panel gets, so these are the
# panel's results; each failure comes with one line of reason.
# Usage: host-probe-tcp.sh VARCFG_HOST_EXE NATIVE_MDVR_SIM WINE_RUN
set -uo pipefail
host_exe=$1 sim=$2 wine_run=$3

if [ ! -x "$sim" ]; then
  echo "FAIL: no native mdvr-sim at $sim: build the native preset first (scripts/test does)"
  exit 1
fi

work=$(mktemp -d)
sim_pid=
stop_sim() {
  [ -n "$sim_pid" ] || return 0
  kill "$sim_pid" 2>/dev/null
  # It ends at once, even while it waits out a latency; one that does not is killed after half a second.
  for _ in $(seq 5); do kill -0 "$sim_pid" 2>/dev/null || break; sleep 0.1; done
  kill -KILL "$sim_pid" 2>/dev/null
  wait "$sim_pid" 2>/dev/null
  sim_pid=
}
trap 'stop_sim; rm -rf "$work"' EXIT

failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }

# Starts mdvr-sim with the options given on a free loopback port, and sets port.
start_sim() {
  "$sim" --port 0 "$@" >"$work/sim.out" 2>&1 &
  sim_pid=$!
  for _ in $(seq 100); do
    port=$(sed -n 's/^listening on 127\.0\.0\.1:\([0-9]*\)$/\1/p' "$work/sim.out")
    [ -n "$port" ] && return 0
    kill -0 "$sim_pid" 2>/dev/null || break
    sleep 0.05
  done
  echo "FAIL: mdvr-sim did not start: $(cat "$work/sim.out")"
  exit 1
}

# Runs the probe against the port (or the host given in recorder); its output goes to $work/probe.out,
# its exit status to status.
probe() {
  timeout 60 "$wine_run" "$host_exe" --recorder "${recorder:-127.0.0.1:$port}" --probe "$@" >"$work/probe.out" 2>&1
  status=$?
  tr -d '\r' <"$work/probe.out" >"$work/probe.txt"
}
field() { sed -n "s/^$1 //p" "$work/probe.txt"; }
elapsed_ms() { field time | sed -n 's/^\([0-9]*\) ms$/\1/p'; }

# 1. An answer: the version reply of the simulated model, whole.
start_sim --model MR8-O1
probe
if [ "$(field result)" != 1 ] || [ "$status" -ne 0 ]; then
  fail "an answering recorder: expected result 1 and status 0, got status $status: $(cat "$work/probe.txt")"
fi
case "$(field reply)" in
  '<VariCfgSec Action="DEVICE_QUERY"><stVersion Model="MR8-O1" '*'</VariCfgSec>') ;;
  *) fail "an answering recorder: not the version reply of MR8-O1: $(field reply)" ;;
esac
stop_sim

# 2. A recorder that answers after 3 s, a host that waits 0.5 s: a zero result, in about that time.
start_sim --latency 3000
probe --timeout 500
ms=$(elapsed_ms)
if [ "$(field result)" != 0 ] || [ "$status" -ne 1 ] || [ -n "$(field reply)" ] ||
   [ "$(field problem)" != "no reply within 500 ms" ]; then
  fail "a slow recorder: expected result 0, no reply, its reason and status 1, got status $status: $(cat "$work/probe.txt")"
fi
if [ -z "$ms" ] || [ "$ms" -lt 450 ] || [ "$ms" -gt 1000 ]; then
  fail "a slow recorder: the exchange should end after about 500 ms, it took '${ms}' ms"
fi
stop_sim

# 3. The same port with nobody listening: a zero result at once, not after the 3 s time-out.
probe --timeout 3000
ms=$(elapsed_ms)
case "$(field problem)" in
  "cannot connect to 127.0.0.1:$port: "*"(Windows error 10061)") ;;
  *) fail "a refused connection: expected the refusal with its Windows text, got: $(cat "$work/probe.txt")" ;;
esac
if [ "$(field result)" != 0 ] || [ "$status" -ne 1 ]; then
  fail "a refused connection: expected result 0 and status 1, got status $status: $(cat "$work/probe.txt")"
fi
if [ -z "$ms" ] || [ "$ms" -gt 1000 ]; then
  fail "a refused connection: the exchange should end at once, it took '${ms}' ms"
fi

# 4. A host name that does not exist: no answer, and the name in the reason.
recorder=no-such-host.invalid:6000 probe
case "$(field problem)" in
  "cannot find the host no-such-host.invalid: "*) ;;
  *) fail "an unknown host: expected its name in the reason, got: $(cat "$work/probe.txt")" ;;
esac
[ "$status" -eq 1 ] || fail "an unknown host: expected status 1, got $status"

if [ "$failures" -ne 0 ]; then
  echo "host-probe-tcp: $failures failures in 4 cases"
  exit 1
fi
echo "host-probe-tcp: 4 cases passed"
