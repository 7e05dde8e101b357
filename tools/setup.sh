# Sourced by run, test and .ci/run: installs what is missing on Debian 12 and builds one preset.

# kzq_install LIST...: installs the packages named in tools/packages/LIST.txt that are not there yet.
kzq_install() {
    local list package missing=()
    for list in "$@"; do
        while read -r package; do
            [ -n "$package" ] || continue
            dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
        done < <(sed 's/#.*//; s/[[:space:]]*$//' "tools/packages/$list.txt")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || {
            echo "These packages are missing, and neither root nor sudo is at hand: ${missing[*]}" >&2
            return 1
        }
        as_root=(sudo)
    fi
    echo "Installing: ${missing[*]}" >&2
    "${as_root[@]}" apt-get update -qq >&2 &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
}

# kzq_build PRESET [TARGET...]: configures once, then builds; silent when nothing is to be done.
kzq_build() {
    local preset=$1 log
    shift
    log=$(mktemp)
    if [ ! -f "build/$preset/build.ninja" ] && ! cmake --preset "$preset" >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        return 1
    fi
    if [ -t 2 ] || [ -n "${CI:-}" ]; then
        rm -f "$log"
        cmake --build "build/$preset" ${*:+--target "$@"} >&2
        return
    fi
    if ! cmake --build "build/$preset" ${*:+--target "$@"} >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        return 1
    fi
    rm -f "$log"
}
