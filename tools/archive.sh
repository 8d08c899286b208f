# shellcheck shell=bash
# SPDX-FileCopyrightText: 2026 The Zamber project
# SPDX-License-Identifier: MIT
#
# Where another release of Debian comes from: the archive that this machine installs from.

# archive_lines <release>: apt's sources of this machine with the other release's name in them, as "address release main".
archive_lines() {
    local codename release=$1
    codename=$(. /etc/os-release && echo "${VERSION_CODENAME-sid}")
    apt-get indextargets --format '$(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' 2>/dev/null |
        sed -n -E "s/^([^ ]+) ($codename|oldstable|stable|testing|unstable|sid)(-(updates|security))? main$/\1 $release\3 main/p" |
        awk '!seen[$0]++'
}

# unpack_packages <release> <folder> <package>…: fetched from the archive and unpacked into the folder, not installed.
unpack_packages() {
    local release=$1 folder=$2 package
    shift 2
    rm -rf "$folder"
    mkdir -p "$folder/apt/lists/partial" "$folder/apt/cache/archives/partial" "$folder/apt/fetched"
    archive_lines "$release" | sed 's/^/deb /' >"$folder/apt/sources.list"
    touch "$folder/apt/status"
    local options=(-q -o Dir::Etc::SourceList="$folder/apt/sources.list" -o Dir::Etc::SourceParts=-
        -o Dir::State::Lists="$folder/apt/lists" -o Dir::State::Status="$folder/apt/status"
        -o Dir::Cache="$folder/apt/cache" -o APT::Sandbox::User=)
    apt-get "${options[@]}" update >"$folder/apt/log" 2>&1 &&
        (cd "$folder/apt/fetched" && apt-get "${options[@]}" download "$@" >>"$folder/apt/log" 2>&1) ||
        { tail -n 5 "$folder/apt/log" >&2 && return 1; }
    for package in "$folder"/apt/fetched/*.deb; do
        dpkg -x "$package" "$folder"
    done
}
