#!/usr/bin/env bash
# Looks whether built programs have what cmake/Hardening.cmake asks for:
#   packaging/hardening.sh PROGRAM...
#
# Linux programs may be stripped, Windows programs may not: only their symbols tell of the stack protector.
# Says what a program lacks; the exit status is 1 then.
set -euo pipefail

if [ $# = 0 ]; then
    echo "usage: packaging/hardening.sh PROGRAM..." >&2
    exit 2
fi

status=0
Lacks() {
    echo "hardening: $1 lacks $2" >&2
    status=1
}

# $1 the program, $2 what it is for, $3 the pattern that tells of it, $4 the text to look in
Need() { grep -Eq "$3" <<<"$4" || Lacks "$1" "$2"; }

ElfCheck() {
    local header segments dynamic symbols
    header=$(LC_ALL=C readelf -hW "$1")
    segments=$(LC_ALL=C readelf -lW "$1")
    dynamic=$(LC_ALL=C readelf -dW "$1")
    symbols=$(LC_ALL=C readelf --dyn-syms -W "$1")
    Need "$1" "a position-independent program" 'Type: +DYN' "$header"
    Need "$1" "a position-independent program (-pie)" 'FLAGS_1.* PIE' "$dynamic"
    Need "$1" "read-only relocations" 'GNU_RELRO' "$segments"
    Need "$1" "immediate binding" 'FLAGS_1.* NOW' "$dynamic"
    Need "$1" "a stack that is no code" 'GNU_STACK .* RW ' "$segments"
    Need "$1" "the stack protector" '__stack_chk_fail' "$symbols"
    Need "$1" "_FORTIFY_SOURCE" ' __[a-z]+_chk(@|$)' "$symbols"
}

PeCheck() {
    local header symbols
    header=$(LC_ALL=C x86_64-w64-mingw32-objdump -p "$1")
    symbols=$(LC_ALL=C x86_64-w64-mingw32-nm "$1" 2>/dev/null || true)
    Need "$1" "an address chosen at its start" '\sDYNAMIC_BASE$' "$header"
    Need "$1" "an address above 4 GB" '\sHIGH_ENTROPY_VA$' "$header"
    Need "$1" "data that is no code (DEP)" '\sNX_COMPAT$' "$header"
    Need "$1" "relocations" 'Base Relocation Directory' "$(grep -E '^Entry 5 [0-9a-f]*[1-9a-f]' <<<"$header")"
    Need "$1" "the stack protector" ' [Tt] __stack_chk_fail$' "$symbols"
}

for program in "$@"; do
    case $(head -c 4 "$program" | tr -d '\0') in
    ?ELF) ElfCheck "$program" ;;
    MZ*) PeCheck "$program" ;;
    *) Lacks "$program" "everything: it is no program" ;;
    esac
done
exit $status
