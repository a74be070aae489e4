# shellcheck shell=bash
# The Debian packages that each command of this project requires. Source this file. Each function
# appends to `packages`.

# needs_command PROGRAM PACKAGE: adds PACKAGE unless PROGRAM is installed, from whatever source.
needs_command() { command -v "$1" >/dev/null || packages+=("$2"); }

# For building and running the helper and the example browser.
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
  # Commands that the documents show.
  needs_command curl curl
  needs_command gdb gdb
  needs_command jq jq
  needs_command less less
  needs_command logrotate logrotate
  needs_command man man-db
}

# For lint, sanitizers, fuzz targets, benchmarks, packages and the presets for macOS.
packages_for_maintainer() {
  packages+=(
    # Other versions of these two programs report other problems.
    clang-tidy clang-format
    libclang-rt-14-dev
    libbenchmark-dev liblog4cplus-dev libspdlog-dev
    # For the tests of macOS' implementation of platform/.
    libgnustep-base-dev gnustep-base-runtime
    # D-Bus for the system's Python, which runs the soak test.
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
  # For the plot of the soak test.
  needs_command gnuplot gnuplot-nox
  # For libraries and programs for macOS.
  needs_command llvm-nm llvm
}
