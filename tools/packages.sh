# Sourced by the project's commands: installs what is missing of the Debian packages they are given.

need_packages() {
    local missing=()
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing: ${missing[*]}"
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

build_packages=(git cmake ninja-build g++ python3)
native_packages=(libgtest-dev libbenchmark-dev)
windows_packages=(g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64 googletest wine wine64 fonts-wine xvfb xauth)
screenshot_packages=(imagemagick)
guide_packages=(imagemagick optipng)
package_packages=(zip wixl msitools cmark-gfm)
