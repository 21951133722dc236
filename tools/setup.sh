# shellcheck shell=bash
# Sourced by ./run and ./check, which set $top: gets a machine ready to build Quaverly.
# shellcheck disable=SC2154

packages_needed() {
    sed -e 's/#.*//' -e 's/[[:space:]]//g' -e '/^$/d' "$top/tools/packages.txt"
}

packages_missing() {
    local installed
    installed=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' 2>/dev/null |
        sed -n 's/ installed$//p' | sort -u)
    comm -23 <(packages_needed | sort -u) <(printf '%s\n' "$installed")
}

# Runs a command with the rights that installing takes.
as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "This takes administrator's rights, and there is no sudo: $*" >&2
        return 1
    fi
}

install_missing_packages() {
    if ! command -v dpkg-query >/dev/null; then
        echo "This is no Debian system; see tools/packages.txt for what has to be installed." >&2
        return 0
    fi
    local missing
    mapfile -t missing < <(packages_missing)
    [ ${#missing[@]} -gt 0 ] || return 0
    echo "Installing: ${missing[*]}" >&2
    local apt=(env DEBIAN_FRONTEND=noninteractive apt-get -qq -y --no-install-recommends)
    as_root "${apt[@]}" install "${missing[@]}" </dev/null >&2 && return 0
    as_root "${apt[@]}" update </dev/null >&2 &&
        as_root "${apt[@]}" install "${missing[@]}" </dev/null >&2
}

# build PRESET [TARGET...]: configures and builds. What it says goes to the error output, so that the
# output of a program started afterwards stays alone.
build() {
    local preset=$1 log
    shift
    log=$(mktemp)
    if ! cmake --preset "$preset" >"$log" 2>&1 </dev/null; then
        cat "$log" >&2
        rm -f "$log"
        return 1
    fi
    rm -f "$log"
    cmake --build --preset "$preset" ${1:+--target "$@"} </dev/null >&2
}
