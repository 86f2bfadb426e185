#!/usr/bin/env bash
# Makes build/Hopcast-VERSION-win64.zip and build/Hopcast-VERSION-setup.exe, on Debian 12 or 13.
# The first run also makes Qt (qt.sh).
set -euo pipefail
cd "$(dirname "$0")/../.."

Say() { echo "windows: $*" >&2; }

scripts/setup.sh windows
if command -v ccache >/dev/null; then
    export CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi
# Of the same tree the same zip: its last change dates the linked programs, their pictures and the files.
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct 2>/dev/null || stat -c %Y CHANGELOG.md)}
export SOURCE_DATE_EPOCH QT_RCC_SOURCE_DATE_OVERRIDE=$SOURCE_DATE_EPOCH

build=build/windows-package
# Pictures that were packed for an older state keep its date: they are packed again.
[ ! -d "$build" ] || find "$build" -name 'qrc_*.cpp' -delete
programs=(hopcast hopcast-predict rec533w)
scratch=
trap '[ -z "$scratch" ] || rm -rf "$scratch"' EXIT

# The libraries that a program asks for. All must be Windows' own.
LibrariesCheck() {
    local libraries library
    libraries=$(x86_64-w64-mingw32-objdump -p "$1" | sed -n 's/^\s*DLL Name: //p')
    while read -r library; do
        case ${library,,} in
        advapi32.dll | authz.dll | comctl32.dll | comdlg32.dll | d3d9.dll | d3d11.dll | dwmapi.dll | \
            dwrite.dll | dxgi.dll | \
            gdi32.dll | imm32.dll | kernel32.dll | mpr.dll | msvcrt.dll | netapi32.dll | ole32.dll | \
            oleaut32.dll | setupapi.dll | shcore.dll | shell32.dll | shlwapi.dll | user32.dll | \
            userenv.dll | uxtheme.dll | version.dll | winmm.dll | winspool.drv | ws2_32.dll | \
            wtsapi32.dll | api-ms-win-*.dll) ;;
        *)
            Say "${1##*/} asks for $library, which Windows does not have"
            return 1
            ;;
        esac
    done <<<"$libraries"
}

# Texts for Windows: lines end in CR LF.
TextCopy() { sed "s/@VERSION@/$version/g; s/@QT_SOURCE@/$qt_source/g; s/\r*\$/\r/" "$1" >"$2"; }

# What the licences ask to travel with the programs.
LicencesCopy() {
    local folder=$1 file
    mkdir -p "$folder/qt"
    TextCopy packaging/windows/licences.txt "$folder/README.txt"
    TextCopy assets/README.md "$folder/pictures-and-map.txt"
    TextCopy assets/engine/README.md "$folder/engine-figures.txt"
    TextCopy assets/engine/voacapl-data-copyright.txt "$folder/voacapl-data.txt"
    TextCopy /usr/share/doc/gcc-mingw-w64-x86-64-posix-runtime/copyright "$folder/gcc-runtime.txt"
    TextCopy /usr/share/doc/mingw-w64-common/copyright "$folder/mingw-w64.txt"
    for file in "$qt"/licenses/*; do
        TextCopy "$file" "$folder/qt/${file##*/}"
    done
}

FolderFill() {
    local folder=$1 program
    mkdir -p "$folder"
    for program in "${programs[@]}"; do
        packaging/hardening.sh "$build/bin/$program.exe"
        x86_64-w64-mingw32-strip -o "$folder/$program.exe" "$build/bin/$program.exe"
        LibrariesCheck "$folder/$program.exe"
    done
    TextCopy assets/profile/hopcast.ini "$folder/hopcast.ini"
    TextCopy packaging/windows/readme.txt "$folder/README.txt"
    TextCopy LICENSE "$folder/LICENCE.txt"
    LicencesCopy "$folder/licences"
    cp -r "$build/bin/guide" "$folder/"
    find "$folder" -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +
}

# The installer's lists: what it puts down save the profile, which it must not overwrite; what it
# takes away again; its programs.
# shellcheck disable=SC2016 # makensis expands these
InstallerLists() {
    local folder=$1 file program sub
    echo '!macro FilesInstall'
    (cd "$folder" && find . -type f ! -name hopcast.ini -printf '%P\n' | LC_ALL=C sort) >"$scratch/files"
    while read -r file; do
        sub=$(dirname "$file")
        if [ "$sub" = . ]; then sub=''; else sub=\\${sub//\//\\}; fi
        printf '    SetOutPath "$INSTDIR%s"\n    File "%s"\n' "$sub" "$folder/$file"
    done <"$scratch/files"
    printf '!macroend\n!macro FilesRemove\n'
    while read -r file; do
        printf '    Delete "$INSTDIR\\%s"\n' "${file//\//\\}"
    done <"$scratch/files"
    (cd "$folder" && find . -mindepth 1 -type d -printf '%P\n' | LC_ALL=C sort -r) |
        while read -r sub; do
            printf '    RMDir "$INSTDIR\\%s"\n' "${sub//\//\\}"
        done
    printf '!macroend\n!macro ProgramsEach DO\n'
    for program in "${programs[@]}"; do
        printf '    !insertmacro ${DO} %s.exe\n' "$program"
    done
    echo '!macroend'
}

InstallerMake() {
    local folder=$1 output=$2
    InstallerLists "$folder" >"$scratch/files.nsh"
    makensis -V2 -WX -NOCD "-DFOLDER=$folder" "-DFILES=$scratch/files.nsh" "-DVERSION=$version" \
        "-DOUTPUT=$output" "-DICON=$PWD/assets/icon/hopcast.ico" packaging/windows/installer.nsi >&2
}

Main() {
    qt=$(packaging/windows/qt.sh)
    qt_source=$(basename "$qt"/../source/*.dsc .dsc | tr _ ' ')
    cmake --preset windows-package "-DHOPCAST_QT=$qt" >&2
    cmake --build --preset windows-package --target "${programs[@]}" hopcast_guide >&2
    version=$(sed -n 's/^CMAKE_PROJECT_VERSION:[A-Z]*=//p' "$build/CMakeCache.txt")

    scratch=$(mktemp -d)
    local name=Hopcast-$version
    FolderFill "$scratch/$name"
    rm -f "build/$name-win64.zip"
    (cd "$scratch" && find "$name" -type f | LC_ALL=C sort | TZ=UTC zip -q -X -9 -@ new.zip)
    mv "$scratch/new.zip" "build/$name-win64.zip"
    InstallerMake "$scratch/$name" "$scratch/$name-setup.exe"
    mv "$scratch/$name-setup.exe" build/
    (cd "$scratch" && stat -c '%10s  %n' "$name"/*.exe)
    stat -c '%10s  %n' "build/$name-win64.zip" "build/$name-setup.exe"
    Say "who gives zip or installer away also gives Qt's source away: $(realpath "$qt/../source")"
}

Main
