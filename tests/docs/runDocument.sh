#!/usr/bin/env bash
# Usage: runDocument.sh PROGRAM DOCUMENT [--update]
#
# Runs the fenced blocks of a document in an empty folder, with the program first in PATH and the
# repository's examples/, resources/ and tests/ at hand:
#   ```sh       every command must succeed
#   ```console  "$ " (and "> ") lines are commands, the rest is exactly what they print
# A block fenced as "```sh needs: TOOL" is skipped where the tool is missing, one fenced as
# "```sh not run" always. Then every picture of the document that the commands made must be the one
# beside the document; --update puts it there instead.
set -euo pipefail
program=$(realpath "$1") document=$(realpath "$2") update=${3:-}
repository=$(realpath "$(dirname "${BASH_SOURCE[0]}")/../..")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
ln -s "$repository"/{examples,resources,tests} .
export LC_ALL=C PATH="$(dirname "$program"):$PATH"

awk '
    !inside && /^```(sh|console)/ { inside = 1; block = sprintf(".block%03d", ++count); print > block; next }
    inside && /^```/ { inside = 0; close(block) }
    inside { print > block }' "$document"

# The script of a console block says each of its commands before it runs it.
transcript() {
    awk '
        /^\$ / { flush(); command = substr($0, 3); shown = $0; next }
        /^> / { command = command "\n" substr($0, 3); shown = shown "\n" $0 }
        END { flush() }
        function flush() {
            if (shown != "") printf "cat <<\"[shown]\"\n%s\n[shown]\n%s\n", shown, command
        }' "$1"
}

runBlock() {
    local fence
    fence=$(head -n 1 "$1")
    tail -n +2 "$1" >.commands
    case $fence in
        *"not run") return 0 ;;
        *"needs: "*)
            if ! command -v "${fence##*needs: }" >/dev/null; then
                echo "Skipped, there is no ${fence##*needs: }:"
                cat .commands
                return 0
            fi ;;
    esac
    case $fence in
        '```sh'*) sh -eu .commands >.output 2>&1 </dev/null ;;
        *)
            transcript .commands | sh >.printed 2>&1 || true
            diff .commands .printed >.output ;;
    esac
}

blocks=(.block*)
[ -e "${blocks[0]}" ] || { echo "$document has no commands"; exit 1; }
for block in "${blocks[@]}"; do
    runBlock "$block" || { cat "$block" .output; exit 1; }
done
echo "Ran ${#blocks[@]} blocks"

# Links to pictures stand in the document as (FOLDER/NAME.png).
for picture in $(grep -o '([a-z/]*[^()/]*\.png)' "$document" | tr -d '()' | sort -u); do
    made=$(basename "$picture")
    [ -e "$made" ] || continue
    if [ "$update" = --update ]; then
        cp "$made" "$(dirname "$document")/$picture"
    else
        cmp "$made" "$(dirname "$document")/$picture"
    fi
    echo "Compared $picture"
done
