# shellcheck shell=bash
# The Debian packages that each command of this project needs. Sourced. Each function appends to
# `packages`.

# Adds a package unless its program is there, perhaps from elsewhere than from Debian.
needs_command() { command -v "$1" >/dev/null || packages+=("$2"); }

# Builds the helper and the example browser and runs them.
packages_for_demo() {
  packages+=(
    libsystemd-dev libplist-dev libxml2-dev
    libpng-dev libx11-dev nlohmann-json3-dev
    # The libraries that libcef.so loads, and a font.
    libgtk2.0-0 libgconf-2-4 libnss3 libxss1 libasound2 libatk1.0-0 libxtst6 libxrandr2 libxcursor1
    libxcomposite1 libxdamage1 libx11-xcb1 libdbus-1-3 fonts-dejavu-core
  )
  needs_command g++ g++
  needs_command ninja ninja-build
  needs_command pkg-config pkg-config
  needs_command xvfb-run xvfb
  needs_command xauth xauth
  cmake -P tools/lib/cmake_version.cmake >/dev/null 2>&1 || packages+=(cmake)
  python3 -m pip --version >/dev/null 2>&1 || packages+=(python3-pip)
  [ -e /etc/ssl/certs/ca-certificates.crt ] || packages+=(ca-certificates)
}

packages_for_tests() {
  packages+=(libgtest-dev libgmock-dev)
  needs_command strace strace
  needs_command dbus-daemon dbus-daemon
  needs_command busctl systemd
  needs_command gdbus libglib2.0-bin
  needs_command lnav lnav
  needs_command mandoc mandoc
  # The commands of the documents.
  needs_command curl curl
  needs_command gdb gdb
  needs_command jq jq
  needs_command less less
  needs_command logrotate logrotate
  needs_command man man-db
}

# Lint, sanitizers, fuzz targets, benchmarks, packages and the presets for macOS.
packages_for_maintainer() {
  packages+=(
    # Other versions of these two have other opinions.
    clang-tidy clang-format
    libclang-rt-14-dev
    libbenchmark-dev liblog4cplus-dev libspdlog-dev
    # macOS' implementation of platform/ is tested on these.
    libgnustep-base-dev gnustep-base-runtime
    # D-Bus for the system's Python, for the soak test.
    python3-jeepney
  )
  needs_command clang++ clang
  needs_command shellcheck shellcheck
  # Programs that cpack and its test call.
  needs_command dpkg-shlibdeps dpkg-dev
  needs_command file file
  needs_command lintian lintian
  needs_command zstd zstd
  # The TypeScript compiler.
  needs_command node nodejs
  needs_command npm npm
  # The picture of the soak test.
  needs_command gnuplot gnuplot-nox
  # Libraries and programs for macOS.
  needs_command llvm-nm llvm
}
