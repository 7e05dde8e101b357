# Sourced by run, test and others: installs what is missing on Debian 12 and builds one preset.

# kzq_say SENTENCE: why it does not go on, and what to do
kzq_say() {
    echo "$*" >&2
}

# kzq_full LOG FOLDER...: says so when a disk is full, else fails
kzq_full() {
    local log=$1 folder free
    shift
    for folder in "$@"; do
        free=$(df --output=avail -k "$folder" 2>/dev/null | tail -1)
        if [ "${free:-999999}" -lt 20000 ]; then
            kzq_say "The disk with $(readlink -f "$folder") is full. Free some space (2 GB are enough), then start again."
            return 0
        fi
    done
    grep -qE "enough free space|No space left on device" "$log" 2>/dev/null || return 1
    kzq_say "The disk is full. Free some space (2 GB are enough), then start again."
}

# kzq_install LIST...: installs the packages named in tools/packages/LIST.txt that are not there yet.
kzq_install() {
    command -v dpkg-query apt-get >/dev/null || return 0  # not Debian: CMake names what is missing
    local list wanted missing as_root=() log
    mapfile -t wanted < <(for list in "$@"; do cat "tools/packages/$list.txt"; done | sed 's/#.*//; s/[[:space:]]*$//; /^$/d')
    mapfile -t missing < <(printf '%s\n' "${wanted[@]}" | grep -vxFf <(
        dpkg-query -W -f='${db:Status-Status} ${Package}\n' "${wanted[@]}" 2>/dev/null | sed -n 's/^installed //p'))
    [ ${#missing[@]} -gt 0 ] || return 0
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || {
            kzq_say "Packages are missing, and only root can install them. As root, run this, then start again:" \
                "apt-get install --no-install-recommends ${missing[*]}"
            return 1
        }
        as_root=(sudo)
    fi
    echo "Installing: ${missing[*]}" >&2
    log=$(mktemp) || return 1
    if ! { "${as_root[@]}" env LC_ALL=C apt-get update -qq &&
        "${as_root[@]}" env LC_ALL=C DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=300 \
            install -y -qq --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
        kzq_not_installed "$log" "${missing[@]}"
        rm -f "$log"
        return 1
    fi
    rm -f "$log"
}

# kzq_not_installed LOG PACKAGE...: the reason, in one sentence where it is known
kzq_not_installed() {
    local log=$1
    shift
    if kzq_full "$log" /var/cache/apt /usr /tmp; then
        return
    elif grep -qE "Temporary failure|Could not (resolve|connect)|Unable to connect|Failed to fetch|unreachable" "$log"; then
        kzq_say "Packages could not be downloaded: there is no network, or the mirror is unreachable." \
            "Connect to the network, then start again."
    elif grep -qE "^sudo:|not in the sudoers" "$log"; then
        kzq_say "sudo was refused. As root, run this, then start again: apt-get install --no-install-recommends $*"
    else
        cat "$log" >&2
        kzq_say "Packages could not be installed (see above). When that is solved, start again."
    fi
}

# kzq_tools_are_new_enough: of what CMake cannot check before it needs it
kzq_tools_are_new_enough() {
    local compiler=${CXX:-c++} version
    if ! version=$(cmake --version 2>/dev/null | sed -n '1s/.* //p') || [ -z "$version" ]; then
        kzq_say "CMake is missing. Install CMake 3.25 or newer (Debian: cmake), then start again."
        return 1
    fi
    if [ "$(printf '%s\n' 3.25 "$version" | sort -V | head -1)" != 3.25 ]; then
        kzq_say "CMake $version is too old. Install CMake 3.25 or newer, then start again."
        return 1
    fi
    if ! command -v "${compiler%% *}" >/dev/null; then
        kzq_say "There is no compiler \"$compiler\". Install GCC 12 or newer (Debian: g++), then start again."
        return 1
    fi
    version=$($compiler -dumpversion)
    if ! $compiler --version | grep -q clang && [ "${version%%.*}" -lt 12 ]; then
        kzq_say "GCC $version is too old. Install GCC 12 or newer and start again with CXX=g++-12 before the command."
        return 1
    fi
}

# kzq_configure PRESET LOG: once; what an earlier attempt or another place left is thrown away
kzq_configure() {
    local folder=build/$1
    if [ -f "$folder/build.ninja" ] &&
        grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "$folder/CMakeCache.txt" 2>/dev/null; then
        return 0
    fi
    kzq_tools_are_new_enough || return 1
    rm -f "$folder/build.ninja"
    cmake --fresh --preset "$1" >"$2" 2>&1 && return 0
    rm -f "$folder/build.ninja"
    kzq_full "$2" build /tmp || sed -n '/^CMake Error/,/^Call Stack/{/^Call Stack/!p}' "$2" >&2
    return 1
}

# kzq_build PRESET [TARGET...]: configures once, then builds; silent when nothing is to be done.
kzq_build() {
    local preset=$1 log show=0
    shift
    log=$(mktemp) || return 1
    kzq_configure "$preset" "$log" || { rm -f "$log"; return 1; }
    if [ -t 2 ] || [ -n "${CI:-}" ]; then
        show=1
    fi
    : >"$log"
    if { if [ $show = 1 ]; then
        cmake --build "build/$preset" ${*:+--target "$@"} >&2
    else
        cmake --build "build/$preset" ${*:+--target "$@"} >"$log" 2>&1
    fi; }; then
        rm -f "$log"
        return 0
    fi
    kzq_full "$log" build /tmp || cat "$log" >&2
    rm -f "$log"
    return 1
}
