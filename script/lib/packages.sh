# What the scripts need of the machine, and its installation. To be sourced after stages.sh.

# Columns: a package of Debian, what for, and the releases if not all of those that the tree runs on.
packages_table='
clang-19                 run test bench mutate
lld-19                   run test bench mutate
libclang-rt-19-dev       run test bench mutate
gcc                      run test bench mutate package
cmake                    run test bench mutate
ninja-build              run test bench mutate
pkg-config               run test bench mutate device-test
gobjc                    run test bench mutate package
libgnustep-base-dev      run test bench mutate package
libplist-dev             test bench mutate device-test
nlohmann-json3-dev       run test bench mutate
libmicrohttpd-dev        run test bench mutate
libcairo2-dev            run test bench mutate
libpango1.0-dev          run test bench mutate
libgdk-pixbuf-2.0-dev    run test bench mutate
libpng-dev               run test bench mutate
webp-pixbuf-loader       run test bench mutate
heif-gdk-pixbuf          run test bench mutate
fonts-inter              run test bench mutate
fonts-liberation         run test bench mutate
librsvg2-bin             run test bench mutate
bubblewrap               run test bench
nodejs                   run test bench mutate
esbuild                  run test
npm                      run test bench mutate
llvm-19                  test mutate
libgtest-dev             test mutate
libgmock-dev             test mutate
libplist-utils           test
chromium-headless-shell  test
firefox-esr              test
curl                     test
clang-format-19          test
python3-yaml             test package
git                      test
libbenchmark-dev         bench
python3-clang-19         test mutate package
python3                  test mutate package device-test
make                     run test package device-test
inotify-tools            run test
fakeroot                 test package
clang-22                 test package device-test
lld-22                   test package device-test
llvm-22                  test package device-test
libc++-14-dev            test package device-test  | bookworm
libc++-17-dev            test package device-test  | trixie
qemu-user                device-test
libc6-dev-arm64-cross    device-test
libgcc-12-dev-arm64-cross device-test              | bookworm
libgcc-14-dev-arm64-cross device-test              | trixie
'

# install_packages PURPOSE: what is missing of Debian's packages and of npm's modules, a stage each. What the machine
# cannot give is refused before anything is changed.
install_packages() {
  local release missing=() as_root=()
  packages_check_system
  packages_find_missing "$1"
  if [ ${#missing[@]} -gt 0 ]; then
    packages_become_root
    stage Packages packages_install
  fi
  case $1 in
    run | bench | mutate) packages_modules production --omit=dev ;;
    test) packages_modules all ;;
  esac
}

packages_check_system() {
  release=$(. "${OS_RELEASE:-/etc/os-release}" 2>/dev/null; echo "${ID:-} ${VERSION_CODENAME:-}")
  case $release in
    'debian bookworm' | 'debian trixie') release=${release#debian } ;;
    *)
      release=$(. "${OS_RELEASE:-/etc/os-release}" 2>/dev/null; echo "${PRETTY_NAME:-no known system}")
      refuse "needs Debian 12 (bookworm) or Debian 13 (trixie), and this is $release."
      ;;
  esac
}

packages_find_missing() {
  local wanted installed package
  mapfile -t wanted < <(awk -F ' *[|] *' -v purpose=" $1 " -v release="$release" '
    ($2 == "" || $2 == release) && index($1 " ", purpose) { sub(/ .*/, "", $1); print $1 }' <<<"$packages_table")
  installed=$(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "${wanted[@]}" 2>/dev/null |
    sed -n 's/^installed //p' || true)
  for package in "${wanted[@]}"; do
    case $package in nodejs) command -v node ;; npm) command -v npm ;; *) false ;; esac >/dev/null && continue
    grep -qxF "$package" <<<"$installed" || missing+=("$package")
  done
}

packages_become_root() {
  [ "$(id -u)" != 0 ] || return 0
  command -v sudo >/dev/null || refuse "needs root, or sudo, to install ${missing[*]}."
  # A password is asked for here, where nothing moves on the terminal.
  sudo -n true 2>/dev/null || { [ -t 0 ] && sudo -v; } ||
    refuse "needs root to install ${missing[*]}, and sudo refuses it."
  as_root=(sudo)
}

packages_install() {
  echo "Installing ${missing[*]}"
  # The progress goes through a descriptor of its own: apt takes the one that it is told to use away from dpkg. sudo
  # closes all but three, so it is opened behind sudo.
  local unknown apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive sh -c 'exec apt-get -q "$@" 3>&1' apt-get
    -o APT::Status-Fd=3 -o Dpkg::Use-Pty=0 -o DPkg::Lock::Timeout=120)
  "${apt[@]}" update
  unknown=$(comm -23 <(printf '%s\n' "${missing[@]}" | sort) <(packages_known | sort))
  [ -z "$unknown" ] ||
    refuse "needs what no package source of this machine has: ${unknown//$'\n'/ }. See $PWD/$stages_log."
  "${apt[@]}" -y install --no-install-recommends "${missing[@]}"
}

# Those of the missing packages that apt could install.
packages_known() {
  LC_ALL=C apt-cache policy "${missing[@]}" |
    awk '/^[^ ]/ { package = substr($1, 1, length($1) - 1) } $1 == "Candidate:" && $2 != "(none)" { print package }'
}

# packages_modules production|all [OPTION…]: node_modules is as package-lock.json wants it when the stamp of the last
# installation, which may have been of more, is newer.
packages_modules() {
  local stamp
  for stamp in "node_modules/.installed-$1" node_modules/.installed-all; do
    if [ "$stamp" -nt package-lock.json ]; then return; fi
  done
  stage Modules npm ci --no-audit --no-fund --loglevel=error "${@:2}"
  touch "node_modules/.installed-$1"
}
