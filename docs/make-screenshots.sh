#!/bin/sh
# Takes the pictures of docs/screenshots from the window on the demo bench, light and dark.
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
cp "$work"/shots/*.png docs/screenshots/
