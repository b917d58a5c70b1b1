#!/usr/bin/env bash
# Doxygen must have nothing to say about the public headers: everything has a comment, and every
# comment can be read. Prints the warnings.
# Use: check_reference.sh [ROOT]    exits 1 with warnings, 77 without Doxygen
set -euo pipefail
cd "${1:-$(dirname "$0")/../..}"

command -v doxygen > /dev/null || exit 77
output=$(mktemp -d)
trap 'rm -rf "$output"' EXIT

{
    cat docs/Doxyfile
    echo "OUTPUT_DIRECTORY = $output"
    echo "WARN_LOGFILE = $output/warnings"
    echo "GENERATE_HTML = NO"
    echo "GENERATE_XML = YES"
    echo "XML_PROGRAMLISTING = NO"
} | doxygen -
sort -u "$output/warnings" | sed "s|^$PWD/||"
[ ! -s "$output/warnings" ]
