#!/bin/sh
# Takes the pictures of docs/screenshots from the window on the demo bench.
#
#   docs/make-screenshots.sh [BUILD]     BUILD is a build tree, build/dev if not given
set -eu
cd "$(dirname "$0")/.."
build=${1:-build/dev}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export QT_QPA_PLATFORM=offscreen XDG_CONFIG_HOME="$work"

"$build/bin/corvane-bench" new "$work/demo.json" --from demo >/dev/null
"$build/bin/corvane-bench" "$work/demo.json" set /clockRate 1000 >/dev/null
mkdir "$work/shots"
"$build/bin/window_screenshots" "$work/demo.json" "$work/shots"
"$build/bin/window_screenshots" "$work/demo.json" "$work/shots" --dark
mkdir -p docs/screenshots
keep() { cp "$work/shots/$1.png" "docs/screenshots/$2.png"; }
keep corvane2-16g-fc-port main-window
keep corvane3-f2-port-dark fibre-channel-port-dark
keep corvane2-16g-fc-device fibre-channel-device
keep corvane2-10g-sfp+-port ethernet-port
