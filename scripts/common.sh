# shellcheck shell=bash
# Shared by the scripts: where the build goes, how it is configured, and why a script stopped.
# Sourced under `set -euo pipefail`; written for bash 3.2 and the BSD tools as well (the Mac's).
ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
BUILD="${BUILD:-$ROOT/build/dev}"
JOBS=$(getconf _NPROCESSORS_ONLN 2>/dev/null || echo 2)

# step WHAT [WHAT TO DO]: names the step under way, for the one line told when a command fails.
ZOR_STEP="starting" ZOR_HINT="read the lines above for the cause"
step() {
  ZOR_STEP=$1
  ZOR_HINT=${2:-read the lines above for the cause}
}
# Told once, by the script itself: not again by each function or subshell the failure passes.
zor_failed() {
  local status=$1 command=$2
  [ "$BASH_SUBSHELL" -eq 0 ] || return 0
  echo "$(basename "$0"): $ZOR_STEP failed (status $status: $command). What to do: $ZOR_HINT." >&2
}
set -E
trap 'zor_failed $? "$BASH_COMMAND"' ERR

# Installs what is missing, then points CMake at Homebrew's Qt on the Mac (known only afterwards).
install_deps() {
  step "installing what is missing" "see the message above; on Debian run as root, on a Mac install Homebrew first"
  "$ROOT/scripts/install-deps.sh"
  if [ "$(uname)" = Darwin ]; then
    CMAKE_PREFIX_PATH="${CMAKE_PREFIX_PATH:-$(brew --prefix qt)}"
    export CMAKE_PREFIX_PATH
  fi
}

# build [CMAKE ARGUMENTS...]: configures and builds $BUILD.
build() {
  step "configuring the build in $BUILD" "delete $BUILD and run the command again"
  cmake -S "$ROOT" -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE="${BUILD_TYPE:-Debug}" "$@" >/dev/null
  step "building in $BUILD" "the compiler's message above names the file and line"
  cmake --build "$BUILD" -j "$JOBS"
}

# The sanitizers' options for a run of the asan build's tests.
sanitizer_options() {
  # Leaks of the program's own code are failures; what Qt's platform plugins keep for the whole
  # run is suppressed, each with its reason, in tests/sanitizers/lsan.supp.
  export ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
  export LSAN_OPTIONS="suppressions=$ROOT/tests/sanitizers/lsan.supp:print_suppressions=0"
}
