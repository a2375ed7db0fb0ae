#!/usr/bin/env bash
# Usage: manual.sh PROGRAM
#
# Holds the man page against what the program's own help says, has its markup checked where man is
# there, and runs its examples.
set -euo pipefail
program=$(realpath "$1")
here=$(realpath "$(dirname "${BASH_SOURCE[0]}")")
page=$here/../../man/kavrin.1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# The man page as the program would say it: its version, its subcommands, their options with values.
plain() { sed 's/\\f[RP]//g; s/\\-/-/g; s/"//g; s/\\e$/\\/' "$page"; }
{
    plain | sed -n 's/^\.TH .* kavrin \([0-9]*\) .*/\1/p'
    plain | sed -n '/^\.SH COMMANDS/,/^\.SH OPTIONS/s/^\.BI* \([a-z][a-z]*\).*/\1/p' |
        grep -v square # said to be the type that must be given
    plain | sed -n '/^\.SS picture/,/^\.SH/{ s/^\.SS \(.*\)/== \1/p; s/^\.BI* \(-.*\)/\1/p }' |
        tr -s ' '
} >"$folder/page"

subcommands=$("$program" | sed -n 's/^  \([a-z][a-z]*\)  .*/\1/p')
{
    "$program" --version | sed 's/.* //'
    echo "$subcommands"
    for subcommand in picture create pack show instruction; do
        echo "== $subcommand"
        "$program" "$subcommand" --help | sed '/^$/,$d' | tr -s '\n ' ' ' | grep -o '\[-[^]]*\]' |
            tr -d '[]' | grep -v -e --help
    done
} >"$folder/help"
diff "$folder/help" "$folder/page"
for subcommand in help builtin palette; do
    [ "$("$program" "$subcommand" --help | grep -c '^  -')" = 1 ] # --help alone
done

if command -v man >/dev/null; then
    LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 \
        >/dev/null | tee "$folder/warnings"
    [ ! -s "$folder/warnings" ]
fi

plain | awk '
    /^\.EX/ { inside = 1; text = ""; needs = ""; next }
    /^\.EE/ { inside = 0; print "```sh" needs "\n" text "```" }
    inside { text = text $0 "\n"; if (/^pdflatex/) needs = " needs: pdflatex" }' >"$folder/examples.md"
"$here/../../scripts/run-document" "$program" "$folder/examples.md"
