# Debian packages that building and testing need, by purpose, and the function that installs what is missing.
# Sourced by ./check and ./quickstart. README.md shows the same table.

packages_build=(
    g++              # the compiler (C++20)
    cmake            # build system
    ninja-build      # what the CMake presets build with
    zlib1g-dev       # deflated transfer syntax
    libcli11-dev     # command line of the program
    libfmt-dev       # output of the program
    rapidjson-dev    # its JSON
    libspdlog-dev    # log of its archive
    libsqlite3-dev   # the index of the archive
    libutf8proc-dev  # names of persons without case and accents
)
packages_files=(
    python3-pydicom  # 182 real DICOM files, and a peer that writes DICOM JSON
)
packages_tests=(
    libgtest-dev     # GoogleTest
    libgmock-dev     # its matchers
    libbenchmark-dev # benchmarks, built with the release preset
    pkg-config       # the test of the installed library
    libglib2.0-dev   # the example inside GLib's main loop
    python3          # the layering test
    dcmtk            # peers: dcmdump, dcmconv, dcm2json; storescp, dcmqrscp, wlmscpfs
    orthanc          # peer: an archive
    odil             # peer: a client of another implementation
    libgdcm-tools    # peers: gdcmdump, gdcmscanner, gdcmconv
    dicom3tools      # peer: dciodvfy
    doxygen          # API reference without warnings
    clang-format     # formatting test
)
packages_linux_32=(
    g++-multilib     # -m32
    lib32z1-dev      # zlib for it
    googletest       # GoogleTest's sources, built for the target
)
packages_windows=(
    g++-mingw-w64-i686-posix   # compiler for 32-bit Windows; posix: the other thread model has no std::mutex
    g++-mingw-w64-x86-64-posix # compiler for 64-bit Windows
    libz-mingw-w64-dev         # zlib for both
    googletest
)
packages_wine=(
    wine wine64 wine32:i386    # run the Windows tests
)
packages_tidy=(
    clang            # compiles for clang-tidy
    clang-tidy
    clang-format
)

packages_bench=(
    time             # peak memory in bench/peers.sh
    dcmtk
    libgdcm-tools
)

packages_missing() {
    local name
    for name in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$name" 2>/dev/null)" = installed ] || echo "$name"
    done
}

packages_apt() { # apt-get with the rights it needs
    local sudo=""
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || { echo "not root, and there is no sudo" >&2; return 1; }
        sudo=sudo
    fi
    $sudo env DEBIAN_FRONTEND=noninteractive apt-get -q -o Dpkg::Use-Pty=0 -o DPkg::Lock::Timeout=300 "$@" </dev/null
}

# packages_need LOG PACKAGE...: installs those that are missing; nothing is done when all are there.
packages_need() {
    local log=$1
    shift
    local missing
    mapfile -t missing < <(packages_missing "$@")
    [ ${#missing[@]} -gt 0 ] || return 0
    echo "installing: ${missing[*]}"
    if ! command -v apt-get >/dev/null; then
        echo "This is no Debian system: install what these packages hold, then run this again." >&2
        return 1
    fi
    mkdir -p "$(dirname "$log")"
    : >"$log"
    packages_install "${missing[@]}" >>"$log" 2>&1 && return 0
    tail -n 25 "$log" >&2
    echo "Packages could not be installed (whole log: $log). Install them by hand, or run this as root or with sudo." >&2
    if grep -q 'not installable\|unmet dependencies' "$log" && dpkg --print-foreign-architectures | grep -q .; then
        echo "Libraries of two architectures must have one version, and the package index offers none in common: try" \
            "again later, or let older versions replace installed ones with VDICOM_ALLOW_DOWNGRADES=1." >&2
    fi
    return 1
}

# packages_install PACKAGE...: in up to three ways.
packages_install() {
    local foreign="" release sources status=1
    if [[ "$*" == *:i386* ]] && ! dpkg --print-foreign-architectures | grep -qx i386; then
        if [ "$(id -u)" -eq 0 ]; then dpkg --add-architecture i386; else sudo dpkg --add-architecture i386; fi || return 1
    fi
    [ -z "$(dpkg --print-foreign-architectures)" ] || foreign=1
    if [ -z "$foreign" ]; then
        packages_apt update || true # an old index is good enough where a new one cannot be had
        packages_apt -y --no-install-recommends install "$@"
        return
    fi
    if packages_apt update && packages_apt -y --no-install-recommends install "$@"; then
        return 0
    fi
    # A mirror whose i386 security index does not match its release file fails the update as a whole, and offers the
    # libraries of the two architectures in different versions, of which only one can be installed. Go without that
    # index, in a copy of the source lists, and take everything from the release itself, where both are the same.
    echo "== again without the i386 index of the security archive"
    release=$(. /etc/os-release && echo "$VERSION_CODENAME")
    sources=$(mktemp -d)
    packages_sources_copy "$sources"
    local options=(-o "Dir::Etc::sourcelist=$sources/sources.list" -o "Dir::Etc::sourceparts=$sources/parts")
    if packages_apt "${options[@]}" update &&
        packages_apt "${options[@]}" -y -t "$release" --no-install-recommends install "$@"; then
        status=0
    elif [ "${CI:-}" = true ] || [ -n "${VDICOM_ALLOW_DOWNGRADES:-}" ]; then
        # Libraries that came from the security archive stand in the way: back to the release's version of these.
        echo "== again with downgrades"
        printf 'Package: *\nPin: release n=%s\nPin-Priority: 1001\n' "$release" >"$sources/preferences"
        packages_apt "${options[@]}" -o "Dir::Etc::preferences=$sources/preferences" \
            -y --allow-downgrades --no-install-recommends install "$@" && status=0
    fi
    rm -rf "$sources"
    return $status
}

# packages_sources_copy FOLDER: apt's source lists, the security archive limited to the machine's own architecture.
packages_sources_copy() {
    local folder=$1 architecture file
    architecture=$(dpkg --print-architecture)
    mkdir -p "$folder/parts"
    chmod a+rx "$folder" "$folder/parts" # apt reads them as a user of its own
    : >"$folder/sources.list"
    for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
        [ -f "$file" ] || continue
        sed -E "/-security/s/^(deb) +(\[[^]]*\] +)?/\1 [arch=$architecture] /" "$file" >>"$folder/sources.list"
    done
    for file in /etc/apt/sources.list.d/*.sources; do
        [ -f "$file" ] || continue
        awk -v RS='' -v architecture="$architecture" '{
            if ($0 ~ /Suites:[^\n]*-security/ && $0 !~ /(^|\n)Architectures:/) print "Architectures: " architecture
            print $0 "\n"
        }' "$file" >"$folder/parts/$(basename "$file")"
    done
}
