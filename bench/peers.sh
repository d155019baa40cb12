#!/usr/bin/env bash
# Measures the program beside other toolkits' programs on the same files: bench/peers.sh [--runs N] [ROW...], and over
# the network: bench/peers.sh net [--runs N] [ROW...] (bench/net_peers.py).
# Builds the release preset, makes the files in build/bench-files (bench/make_files.py, 1.6 GB), and prints for each row
# the medians of wall time and peak memory and what they are to ours. Programs that are not installed are left out.
# Files are in the page cache; output goes to /dev/null; the programs of a row run in turn, so that what else the
# machine does falls on all of them. Rows: see bench/peers.py, or bench/peers.sh --list.
set -eu
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
compare=bench/peers.py
[ "${1:-}" != net ] || { compare=bench/net_peers.py; shift; }
for argument in "$@"; do
    case $argument in
    --list | -h | --help) exec python3 "$compare" "$@" ;;
    esac
done
cmake --preset release >/dev/null
cmake --build --preset release --target vdicom_program bench_NetBench >/dev/null
python3 bench/make_files.py build/bench-files
exec python3 "$compare" --program build/release/bin/vdicom --files build/bench-files "$@"
