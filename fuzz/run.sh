#!/bin/sh
# Runs each fuzzer for some seconds on a copy of its seeds: fuzz/run.sh SECONDS [BUILD_FOLDER]
# Fails when one of them finds something; what led there is kept in BUILD_FOLDER/findings.
set -eu

seconds=${1:?"usage: $0 SECONDS [BUILD_FOLDER]"}
source_folder=$(cd "$(dirname "$0")" && pwd)
build=$(cd "${2:-$source_folder/../build/sanitizers}" && pwd)
findings=$build/findings
mkdir -p "$findings"
TMPDIR=$(mktemp -d -p /dev/shm 2> /dev/null || mktemp -d)
export TMPDIR
trap 'rm -rf "$TMPDIR"' EXIT

status=0
for fuzzer in open_model_fuzzer text_fuzzer script_fuzzer workbook_fuzzer csv_fuzzer; do
    corpus=$build/corpus/$fuzzer
    rm -rf "$corpus"
    mkdir -p "$corpus"
    cp "$source_folder/seeds/$fuzzer/"* "$corpus"
    echo "== $fuzzer"
    "$build/fuzz/$fuzzer" -max_total_time="$seconds" -max_len=70000 -len_control=0 -timeout=30 -rss_limit_mb=4096 -print_final_stats=1 \
        -dict="$source_folder/$fuzzer.dict" -artifact_prefix="$findings/$fuzzer-" "$corpus" \
        > "$findings/$fuzzer.log" 2>&1 || status=1
    tail -n 12 "$findings/$fuzzer.log"
done
exit $status
