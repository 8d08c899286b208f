# shellcheck shell=bash
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
#
# What ./run and ./test share: packages, configuring, building. Sourced by them with `root` set; kept to what the
# bash 3.2 of macOS understands.

# Homebrew's names for the group "run" and for the tests.
brew_run="boost cmake ninja pkg-config qt icu4c"
brew_test="googletest"

step() { printf '\n== %s\n' "$*"; }

die() {
    printf '%s: %s\n' "$(basename "$0")" "$1" >&2
    shift
    [ $# -eq 0 ] || printf '    %s\n' "$@" >&2
    exit 1
}

# rows <group>…: the rows of the package list that belong to these groups, as "package probe".
rows() {
    awk -v groups=" $* " 'index($1, "#") != 1 && NF && index(groups, " " $1 " ") { print $2, $3 }' \
        "$root/tools/packages.txt"
}

# since_debian <release> <group>: the group, unless this is an older Debian.
since_debian() {
    local ID="" VERSION_ID=""
    . "${os_release-/etc/os-release}" 2>/dev/null || true
    [ "$ID" = debian ] && [ "${VERSION_ID:-$1}" -lt "$1" ] || echo "$2"
}

# require <group>…: whatever these groups name is installed afterwards, or we have stopped and said what is missing.
require() {
    if command -v dpkg-query >/dev/null && command -v apt-get >/dev/null; then
        require_debian "$@"
    elif [ "$(uname -s)" = Darwin ]; then
        require_brew "$@"
    else
        require_elsewhere "$@"
    fi
}

require_debian() {
    local names wanted missing
    names=$(rows "$@" | cut -d ' ' -f 1 | sort -u)
    wanted=$(names_here "$names" | sort -u)
    missing=$(missing_packages "$wanted")
    [ -n "$missing" ] || return 0

    missing=$(echo $missing) # on one line
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || die "packages are missing, and there is no sudo to install them with. As root:" \
            "apt-get update && apt-get install --no-install-recommends $missing"
        as_root=(sudo)
    fi
    step "Installing: $missing"
    # env, because sudo does not hand variables on.
    local apt=(${as_root[@]+"${as_root[@]}"} env DEBIAN_FRONTEND=noninteractive apt-get -q -y
        -o DPkg::Lock::Timeout=600 -o Acquire::Retries=3)
    "${apt[@]}" update || printf 'The package lists could not all be renewed; going on with what there is.\n' >&2
    wanted=$(names_here "$names" | sort -u) # what a fresh machine could not tell before
    missing=$(echo $(missing_packages "$wanted"))
    # shellcheck disable=SC2086 # a list of words
    "${apt[@]}" install --no-install-recommends $missing </dev/null || die "these packages could not be installed (see above):" \
        "$missing"
    missing=$(missing_packages "$wanted")
    [ -z "$missing" ] || die "still missing after the installation:" "$missing"
}

is_installed() { dpkg-query --show --showformat '${db:Status-Abbrev}' "$1" 2>/dev/null | grep -q '^.i'; }

# names_here <names>: of a package with several names, one for each release and | between them, the one that is installed
# or that this release has.
names_here() {
    local name one
    for name in $1; do
        case $name in
        *"|"*)
            for one in ${name//|/ }; do
                ! is_installed "$one" || break
            done
            if ! is_installed "$one"; then
                for one in ${name//|/ }; do
                    # A name that is only mentioned by other packages is no failure of apt-cache's.
                    [ -z "$(apt-cache show "$one" 2>/dev/null)" ] || break
                done
            fi
            name=$one
            ;;
        esac
        printf '%s\n' "$name"
    done
}

missing_packages() {
    local installed
    # shellcheck disable=SC2086
    installed=$(dpkg-query --show --showformat '${db:Status-Abbrev}${Package}\n' $1 2>/dev/null | sed -n 's/^.i //p')
    printf '%s\n%s\n' "$installed" "$1" | sort | uniq -u
}

require_brew() {
    local wanted=$brew_run missing="" name group
    for group in "$@"; do
        [ "$group" != test ] || wanted="$wanted $brew_test"
    done
    command -v brew >/dev/null || die "Homebrew is missing; with it: brew install $wanted"
    for name in $wanted; do
        brew --prefix --installed "$name" >/dev/null 2>&1 || missing="$missing $name"
    done
    [ -z "$missing" ] || die "missing here; install it with: brew install$missing"
    xcrun --find clang++ >/dev/null 2>&1 || die "the compiler is missing; install it with: xcode-select --install"
    # Homebrew links neither of them where CMake looks.
    CMAKE_PREFIX_PATH="$(brew --prefix qt):$(brew --prefix icu4c)${CMAKE_PREFIX_PATH:+:$CMAKE_PREFIX_PATH}"
    export CMAKE_PREFIX_PATH
}

# system: the column of packages-elsewhere.txt for this one, by what it says of itself; nothing when it has none.
system() {
    local words
    words=$(. "${os_release-/etc/os-release}" 2>/dev/null && echo "${ID-} ${ID_LIKE-}") || return 0
    case " $words " in
    *" fedora "* | *" rhel "*) echo 2 ;;
    *" arch "*) echo 3 ;;
    *suse*) echo 4 ;;
    esac
}

# name_elsewhere <column> <Debian's name>: "?" for what the list does not know.
name_elsewhere() {
    awk -v column="$1" -v package="$2" '$1 == package { print $column; found = 1; exit } END { if (!found) print "?" }' \
        "$root/tools/packages-elsewhere.txt"
}

require_elsewhere() {
    local column package probe name names="" unknown="" command=
    column=$(system)
    while read -r package probe; do
        ! is_there "$probe" || continue
        name="?"
        [ -z "$column" ] || name=$(name_elsewhere "$column" "$package")
        case $name in
        -) ;; # built without
        "?") unknown="$unknown    ${probe/:/ } (Debian: $package)
" ;;
        *) case " $names " in *" $name "*) ;; *) names="$names $name" ;; esac ;;
        esac
    done <<ROWS
$(rows "$@")
ROWS
    [ -n "$names$unknown" ] || return 0
    printf '%s: this is no Debian, so nothing is installed by itself.\n' "$(basename "$0")" >&2
    case $column in
    2) command="sudo dnf install" ;;
    3) command="sudo pacman -S --needed" ;;
    4) command="sudo zypper install" ;;
    esac
    if [ -n "$names" ]; then
        printf 'Missing here; install it with (untried):\n    %s%s\n' "$command" "$names" >&2
    fi
    if [ -n "$unknown" ]; then
        printf 'Missing here, by whatever name this system has it:\n%s' "$unknown" >&2
        case $unknown in
        *bootstrap-icons*) printf 'Of Bootstrap Icons (MIT, https://icons.getbootstrap.com) the SVG files in build/bootstrap-icons will do.\n' >&2 ;;
        esac
    fi
    exit 1
}

is_there() {
    case $1 in
    command:*) command -v "${1#*:}" >/dev/null ;;
    pkg-config:*) pkg-config --exists "${1#*:}" 2>/dev/null ;;
    file:*) is_a_file "${1#*:}" ;;
    python:*) /usr/bin/python3 -c "import ${1#*:}" 2>/dev/null ;;
    *) true ;;
    esac
}

# is_a_file <path>|<path>…: is one of them there, seen from the root of the tree?
is_a_file() {
    local path IFS='|'
    for path in $1; do
        ! (cd "$root" && [ -e "$path" ]) || return 0
    done
    return 1
}

# configure <preset> <ON or OFF>: configured with at least that; the tests, once on, stay on, so that ./run and ./test
# do not undo each other's work. Ninja itself configures again when a CMake file has changed. Warnings are errors in the
# release preset only with `strict` set to ON: a newer compiler must not end a user's build. With `unity` set, that is
# the release's ZAMBER_UNITY.
configure() {
    local folder="$root/build/$1" tests=$2 options=() werror=
    local cache="$folder/CMakeCache.txt" stamp="$folder/configured"
    local at_once=
    [ "$1" != release ] || { werror=${strict-OFF} && at_once=${unity-}; }
    if [ -f "$folder/build.ninja" ] && [ -f "$cache" ]; then
        local home
        home=$(sed -n 's/^CMAKE_HOME_DIRECTORY:INTERNAL=//p' "$cache")
        if [ "$home" != "$root" ]; then
            options+=(--fresh) # the folder was moved or copied here
        else
            ! grep -q '^ZAMBER_TESTS:BOOL=ON' "$cache" || tests=ON
            if [ "$root/CMakePresets.json" -ot "$stamp" ] && grep -q "^ZAMBER_TESTS:BOOL=$tests" "$cache" &&
                grep -q "^ZAMBER_WERROR:BOOL=$werror" "$cache" && grep -q "^ZAMBER_UNITY:STRING=$at_once" "$cache"; then
                return 0
            fi
        fi
    fi
    if [ -z "${CMAKE_CXX_COMPILER_LAUNCHER-}" ] && command -v ccache >/dev/null; then
        export CMAKE_CXX_COMPILER_LAUNCHER=ccache
    fi
    step "Configuring ($1)"
    [ -z "$werror" ] || options+=(-D ZAMBER_WERROR="$werror")
    [ -z "$at_once" ] || options+=(-D ZAMBER_UNITY="$at_once")
    (cd "$root" && cmake --preset "$1" -D ZAMBER_TESTS="$tests" ${options[@]+"${options[@]}"}) ||
        die "configuring failed (see above)"
    touch "$stamp"
    # Where editors look that do not read .clangd or the presets.
    [ "$1" != release ] || ln -sf build/release/compile_commands.json "$root/compile_commands.json"
}

# build <preset> [<target>…]: quiet when there is nothing to do.
build() {
    export CCACHE_BASEDIR="${CCACHE_BASEDIR-$root}" CCACHE_NOHASHDIR="${CCACHE_NOHASHDIR-1}"
    export CCACHE_SLOPPINESS="${CCACHE_SLOPPINESS-pch_defines,time_macros}" # as it asks for precompiled headers
    local preset=$1
    shift
    [ $# -eq 0 ] || set -- --target "$@"
    (cd "$root" && cmake --build --preset "$preset" --parallel "$(processors)" "$@")
}

processors() { getconf _NPROCESSORS_ONLN 2>/dev/null || echo 2; }
