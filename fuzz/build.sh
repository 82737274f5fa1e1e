#!/bin/sh
# Builds the state-chunk reader fuzzer with clang's libFuzzer and AddressSanitizer
# from the engine sources alone, and optionally runs it on the seed corpus.
#
#   fuzz/build.sh                 build into build-fuzz/chunk_reader_fuzzer
#   fuzz/build.sh run [SECONDS]   build, then fuzz from fuzz/corpus (default 60 s)
set -eu

root=$(cd "$(dirname "$0")/.." && pwd)
out=${FUZZ_BUILD_DIR:-$root/build-fuzz}
mkdir -p "$out"

clang++ -std=c++20 -O1 -g -ffp-contract=off -fsanitize=fuzzer,address,undefined \
    -I"$root" \
    "$root"/fuzz/chunk_reader_fuzzer.cpp "$root"/fuzz/fuzz_host_slots.cpp \
    "$root"/engine/*.cpp \
    -o "$out/chunk_reader_fuzzer" -lm -lpthread

if [ "${1:-}" = run ]; then
    mkdir -p "$out/corpus"
    "$out/chunk_reader_fuzzer" -max_total_time="${2:-60}" -max_len=4096 \
        "$out/corpus" "$root/fuzz/corpus"
fi
