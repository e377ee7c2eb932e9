#!/usr/bin/env bash
# Writes the demo user's portfolio and ledger reports from a copy of the
# sample base and photographs them in headless Chromium, as a reader sees them.
# Usage: scripts/report-screenshots.sh [BUILD_DIR]   (default build-test)
set -euo pipefail
cd "$(dirname "$0")/.."
build="${1:-build-test}"
command -v chromium >/dev/null || apt-get install -y chromium
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
cp "$build/sample/base1.mdb" "$work/base.mdb"
"$build/app/tesorel-cli" portfolio "$work/base.mdb" --user 1 --html "$work/cartera.htm" >/dev/null
"$build/app/tesorel-cli" ledger "$work/base.mdb" --user 1 --html "$work/historico.htm" >/dev/null
for informe in cartera historico; do
  chromium --headless --no-sandbox --disable-gpu --window-size=1280,400 \
    --screenshot="docs/screenshots/informe_$informe.png" "file://$work/$informe.htm"
done
