# shellcheck shell=bash disable=SC2034
# What the scripts share. Sourced, not run; leaves the caller in the root of the repository.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

say() {
    printf '== %s\n' "$*"
}

# What the library, its tests and its examples are built with; ccache and lld are used where they are there.
# Of names joined by | one must be there.
readonly build_packages=(
    g++ cmake ninja-build pkg-config
    'libboost-filesystem-dev|libboost-filesystem1.74-dev'
    'libboost-system-dev|libboost-system1.74-dev'
    'libboost-regex-dev|libboost-regex1.74-dev'
    libxerces-c-dev
)
readonly test_packages=(libgtest-dev libgmock-dev)
readonly bench_packages=(libbenchmark-dev gfortran)
readonly style_packages=(clang-format clang-tidy)

is_installed() {
    local name
    for name in ${1//|/ }; do
        if [[ "$(dpkg-query --show --showformat='${db:Status-Status}' "$name" 2>/dev/null)" == installed ]]; then
            return 0
        fi
    done
    return 1
}

# Installs those of the given Debian packages that are missing, and runs no package manager if none is.
need_packages() {
    if ! command -v dpkg-query >/dev/null; then
        say "no Debian packages here, taking it that these are provided: $*"
        return
    fi
    local package missing=()
    for package in "$@"; do
        is_installed "$package" || missing+=("${package%%|*}")
    done
    if ((${#missing[@]} == 0)); then
        return
    fi
    local as_root=(env DEBIAN_FRONTEND=noninteractive)
    if ((EUID != 0)); then
        as_root=(sudo "${as_root[@]}")
    fi
    say "installing Debian packages: ${missing[*]}"
    "${as_root[@]}" apt-get update --quiet
    "${as_root[@]}" apt-get install --yes --quiet --no-install-recommends "${missing[@]}"
}

# build_preset PRESET [TARGET...]: configures where that is due and builds.
build_preset() {
    local preset="$1"
    shift
    local folder="build/$preset" targets=()
    (($# == 0)) || targets=(--target "$@")
    # ninja runs cmake again by itself when a CMakeLists.txt has changed; it does not watch the presets.
    if [[ ! -f "$folder/build.ninja" || CMakePresets.json -nt "$folder/build.ninja" ]]; then
        say "configuring $folder"
        cmake --preset "$preset"
    fi
    say "building $folder"
    cmake --build --preset "$preset" "${targets[@]}"
}
