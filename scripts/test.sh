#!/usr/bin/env bash
# Builds Tesorel with AddressSanitizer and UBSan and runs every test.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
bash "$root/scripts/install-deps.sh"

# The code follows the project's .clang-format.
if ! (cd "$root" && git ls-files -- '*.cpp' '*.h' | xargs clang-format --dry-run --Werror 2>/dev/null); then
  echo "Hay ficheros sin el formato del proyecto: clang-format -i sobre ellos." >&2
  (cd "$root" && git ls-files -- '*.cpp' '*.h' | xargs clang-format --dry-run 2>&1 | grep 'warning:' | cut -d: -f1 | sort -u) >&2
  exit 1
fi

build="$root/build-test"
jobs="$(nproc)"
cmake -G Ninja -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Debug -DTESOREL_SANITIZE=ON -DTESOREL_TESTS=ON >/dev/null
cmake --build "$build" -j "$jobs"

export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS="detect_leaks=0:abort_on_error=1"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
ctest --test-dir "$build" --output-on-failure -j "$jobs"
