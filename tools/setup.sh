#!/usr/bin/env bash
# Installs the Debian packages of tools/packages that are missing; does nothing when all are there.
set -euo pipefail
trap 'echo "setup: failed in line $LINENO: $BASH_COMMAND" >&2' ERR
cd "$(dirname "$0")/.."

missing=()
for package in $(sed 's/#.*//' tools/packages); do
    status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$status" = installed ] || missing+=("$package")
done

if [ ${#missing[@]} -eq 0 ]; then
    exit 0
fi

echo "== Installing ${missing[*]}"
as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}"
