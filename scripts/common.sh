# Shared by the README's commands: where the build goes and how it is configured.
ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
BUILD="${BUILD:-$ROOT/build/dev}"
if [ "$(uname)" = Darwin ]; then
  export CMAKE_PREFIX_PATH="${CMAKE_PREFIX_PATH:-$(brew --prefix qt)}"
  JOBS=$(sysctl -n hw.ncpu)
else
  JOBS=$(nproc)
fi

build() {
  cmake -S "$ROOT" -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE="${BUILD_TYPE:-Debug}" "$@" >/dev/null
  cmake --build "$BUILD" -j "$JOBS"
}
