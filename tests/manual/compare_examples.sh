#!/usr/bin/env bash
# Each source is a C++ block of the document, character by character, and no block is anything else.
# Use: compare_examples.sh DOCUMENT SOURCE...
set -euo pipefail
document=$1
shift
blocks=$(mktemp -d)
trap 'rm -rf "$blocks"' EXIT
awk -v folder="$blocks" '
    /^```cpp$/ { inside = 1; file = folder "/" ++count; next }
    /^```$/    { inside = 0 }
    inside     { print > file }' "$document"
[ "$(find "$blocks" -type f | wc -l)" -eq $# ] || { echo "$document quotes more or less than $*"; exit 1; }
for source in "$@"; do
    quoted=no
    for block in "$blocks"/*; do
        cmp -s "$block" "$source" && quoted=yes
    done
    [ $quoted = yes ] || { echo "$document does not quote $source as it is"; exit 1; }
done
