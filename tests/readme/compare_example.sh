#!/usr/bin/env bash
# The first C++ block of the README is the source of the minimal example, character by character.
# Use: compare_example.sh README SOURCE
set -euo pipefail
diff <(awk '/^```cpp$/ { inside = 1; next } /^```$/ && inside { exit } inside' "$1") "$2"
