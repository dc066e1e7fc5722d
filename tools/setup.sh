# Sourced by ./run and ./test: installs the Debian packages that a task needs, as far as they are missing.
# README.md says what each is for.

packages_build="g++ cmake ninja-build ccache mold gettext libmuparser-dev libsqlite3-dev \
    libexpat1-dev libhdf5-dev libxlsxwriter-dev libzip-dev libeigen3-dev libspectra-dev pkg-config"
packages_test="libgtest-dev libgmock-dev libbenchmark-dev zlib1g-dev"
packages_desktop="qt6-base-dev libqt6opengl6-dev libqt6svg6-dev qt6-charts-dev libxkbcommon-dev xvfb xauth fonts-nanum"
packages_fuzz="clang libclang-rt-dev"

# install_packages SET... with the names of the sets above
install_packages() {
    local missing=() set package
    for set in "$@"; do
        local list="packages_$set"
        for package in ${!list}; do
            dpkg-query -W -f '${Status}' "$package" 2> /dev/null | grep -q 'ok installed' || missing+=("$package")
        done
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing: ${missing[*]}"
    local sudo=
    [ "$(id -u)" -eq 0 ] || sudo=sudo
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" > /dev/null
}
