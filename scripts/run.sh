#!/usr/bin/env bash
# Builds Tesorel and runs it on the bundled sample base.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
bash "$root/scripts/install-deps.sh"

build="$root/build"
cmake -G Ninja -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTESOREL_TESTS=OFF >/dev/null
cmake --build "$build"

# The program works in its own folder: copy the sample base there once.
app="$build/app"
[ -f "$app/base1.mdb" ] || cp "$build/sample/base1.mdb" "$app/base1.mdb"

if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  echo "No hay pantalla: se usa un servidor X virtual (xvfb-run)."
  exec xvfb-run -a -s "-screen 0 1280x800x24" "$app/tesorel" "$@"
fi
exec "$app/tesorel" "$@"
