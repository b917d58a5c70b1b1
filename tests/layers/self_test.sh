#!/usr/bin/env bash
# Shows that the check of the layers finds each kind of breach, and nothing in code that keeps the
# rules. Use: self_test.sh CHECK
set -euo pipefail

check=$1
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
failures=0

# expect VERDICT FILE LINE...: checks a tree that holds only this file. VERDICT is "clean" or a
# part of the message.
expect() {
    local verdict=$1 file=$tree/src/$2 output status=0
    shift 2
    rm -rf "$tree/src"
    mkdir -p "$(dirname "$file")"
    printf '%s\n' "$@" > "$file"
    output=$("$check" "$tree" 2>&1) || status=$?
    if [ "$verdict" = clean ]; then
        [ "$status" -eq 0 ] && [ -z "$output" ] && return
    else
        [ "$status" -eq 1 ] && [[ "$output" == *"$verdict"* ]] && return
    fi
    echo "FAILED: expected '$verdict' for $file (exit status $status):"
    printf '    %s\n' "$@" "-> $output"
    failures=$((failures + 1))
}

expect "data may not include scaler" data/a.h '#include "scaler/zuScaler.h"'
expect "scaler may not include cellgrid" scaler/a.h '#include "cellgrid/zuCell.h"'
expect "grid may not include gantt" grid/a.cpp '#  include "gantt/zuGant.h"'
expect "schema may not include grid" schema/a.cpp '#include "grid/zuGrid.h"'
expect "printing may not include design" printing/qt/a.cpp '#include "design/zuRegStuff.h"'
expect "no place in the layers" widgets/a.h '// empty'
expect "by the path from src/" data/a.cpp '#include "zuDataEntityPack.h"'
expect "may not include gantt/qt/zuGant.h" gantt/a.cpp '#include "gantt/qt/zuGant.h"'
expect "a.h:2: core code may not name Qt" data/a.h '// one' '#include <QString>'
expect "may not name Qt" data/a.h '#include <QtCore/qglobal.h>'
expect "may not name Qt" data/a.h 'QString name;'
expect "may not name Qt" data/a.h '/* why */ Q_OBJECT'
expect "may not name Qt" data/a.h 'auto flag = Qt::AlignLeft;'
expect "may not name Qt" data/a.h '/* a comment' 'over lines */ QRect rect;'
expect "may not name Qt" data/a.cpp '    qWarning("no");'

expect clean scaler/a.h '#include "data/zuDataEntityPack.h"' '#include <vector>' \
    '// A QString would do.' '/* So would' '   QRect' '*/' 'const char *text = "QString";'
expect clean gantt/qt/a.cpp '#include "gantt/qt/zuGant.h"' '#include <QWidget>' \
    '#include "grid/zuGrid.h"' '#include "a.moc"' 'QString text;'
expect clean design/a.cpp '#include "printing/zuGridPrinting.h"' 'QIcon icon;'
expect clean data/a.h 'int Q = 0; int freQuency = Quick(); struct TQueue {};'

exit $((failures > 0))
