# shellcheck shell=bash
# The Debian packages that building and testing need, and how the missing ones get installed.
# To be sourced after common.sh.

# The build and the demo.
build_packages=(
  build-essential
  ca-certificates # to scan https sites
  ccache
  cmake
  cmark-gfm # the guide
  libcli11-dev
  libcpp-httplib-dev
  libcurl4-openssl-dev
  libicu-dev
  libpcre2-dev
  libsecret-1-dev
  libsqlite3-dev
  libssl-dev # cpp-httplib is built with TLS
  libxcb1-dev
  libxml2-dev
  ninja-build
  nlohmann-json3-dev
  pkg-config
  qt6-base-dev
  qt6-l10n-tools # lrelease
  qt6-svg-dev
  qt6-tools-dev # where CMake finds lrelease
  qt6-translations-l10n # Qt's own texts
  qt6-webengine-dev
  util-linux # flock, unshare
  zlib1g-dev
)

# The tests, on top of the build.
# shellcheck disable=SC2034 # used by ./test
test_packages=(
  at-spi2-core # with the next and the last ones: the window as an assistive technology sees it
  dbus
  libgmock-dev
  libgtest-dev
  libxml2-utils # xmllint
  python3-pyatspi
  strace
  xauth
  xvfb
)

# packaging/make-deb, on top of the build.
# shellcheck disable=SC2034 # used by packaging/make-deb
packaging_packages=(
  appstream # with the next one: checks what software centres and desktops read
  desktop-file-utils
  dpkg-dev # what the programs depend on
  librsvg2-bin
  lintian
  python3 # makes the man pages
)

# packaging/try-deb, on top of those.
# shellcheck disable=SC2034 # used by packaging/try-deb
trial_packages=(
  imagemagick # looks at the screen
  mmdebstrap
  x11-utils # xwininfo
  xdotool
  xvfb
)

# docs/make-pictures, on top of the build.
# shellcheck disable=SC2034 # used by docs/make-pictures
picture_packages=(
  imagemagick # takes them
  qt6ct       # a dark palette
  xauth
  xdotool
  xvfb
)

# fuzz/run, on top of the build.
# shellcheck disable=SC2034 # used by fuzz/run
fuzz_packages=(
  clang
  libclang-rt-14-dev # libFuzzer and the sanitizers
  llvm # names the functions in a finding's stack trace
)

# missing_packages PACKAGE...: prints those that are not installed, one a line.
missing_packages() {
  local installed package
  # One call for all of them. It exits with 1 when it does not know some: these are simply missing.
  installed=$(dpkg-query --show --showformat '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null || true)
  for package in "$@"; do
    [[ $'\n'$installed$'\n' == *$'\ninstalled '"$package"$'\n'* ]] || printf '%s\n' "$package"
  done
}

# ensure_packages PACKAGE...: installs what is missing; silent and quick when nothing is. Ends the script with one
# clear line when it cannot.
ensure_packages() {
  command -v dpkg-query >/dev/null && command -v apt-get >/dev/null ||
    fail "this is not a Debian system (no apt-get): install the packages named in scripts/packages.sh by hand"

  local missing
  mapfile -t missing < <(missing_packages "$@")
  ((${#missing[@]})) || return 0

  local by_hand="apt-get install ${missing[*]}"
  local as_root=()
  if ((EUID != 0)); then
    command -v sudo >/dev/null ||
      fail "packages are missing, and you are neither root nor is there sudo; as root, run: $by_hand"
    as_root=(sudo)
    # Without a terminal nobody can type the password: rather fail at once than hang.
    if [[ ! -t 0 ]]; then
      sudo -n true 2>/dev/null ||
        fail "packages are missing, and sudo wants a password but there is no terminal to ask on; run: sudo $by_hand"
      as_root+=(-n)
    fi
  fi

  note "Installing ${#missing[@]} missing Debian packages: ${missing[*]}"
  local log
  log=$(mktemp -t veskel-apt-XXXXXX.log)
  # The options bound every wait: for another apt-get that holds the lock, and for a server that does not answer.
  local apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y
    -o DPkg::Lock::Timeout=300 -o Dpkg::Use-Pty=0 -o Acquire::Retries=2 -o Acquire::http::Timeout=30)
  # A list that could not be fetched need not matter: it may be of a source that we take nothing from, or the old
  # lists may do. Whether it does, the install tells.
  local lists=fresh
  "${apt[@]}" -o APT::Update::Error-Mode=any update >"$log" 2>&1 </dev/null || lists=stale
  if ! "${apt[@]}" install --no-install-recommends "${missing[@]}" >>"$log" 2>&1 </dev/null; then
    show_log_end "$log" 15
    [[ $lists == fresh ]] ||
      fail "the package lists could not be fetched, so the missing packages cannot be installed; is there a network?"
    fail "apt-get could not install the missing packages; the lines above say why"
  fi
  rm -f -- "$log"
}
