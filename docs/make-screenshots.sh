#!/bin/sh
# Takes the pictures of docs/screenshots from the window on the demo bench.
#
#   docs/make-screenshots.sh [BUILD [ALL]]     BUILD is a build tree, build/dev if not given; with
#                                              ALL, every picture goes into that folder: each page
#                                              and sheet, light, dark, German and at 200 %
set -eu
cd "$(dirname "$0")/.."
build=${1:-build/dev}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
shots=${2:-$work/shots}
mkdir -p "$shots" "$work/run"
chmod 700 "$work/run"
export QT_QPA_PLATFORM=offscreen XDG_CONFIG_HOME="$work" XDG_RUNTIME_DIR="$work/run"

# take SOURCE SUFFIX OPTION...: what the window says is only of interest when it fails.
take() {
  source=$1
  suffix=$2
  shift 2
  "$build/bin/window_screenshots" "$source" "$shots" --suffix "$suffix" "$@" >/dev/null 2>"$work/log" ||
    { cat "$work/log" >&2; echo "no pictures of $source$suffix" >&2; exit 1; }
}

# photograph SUFFIX OPTION...: a bench of its own for each, since the pictures change it.
photograph() {
  bench="$work/demo$1.json"
  "$build/bin/corvane-bench" new "$bench" --from demo >/dev/null
  "$build/bin/corvane-bench" "$bench" set /clockRate 10 >/dev/null
  take "$bench" "$@" --package bench/packages/corvane2-11.4.204.pkg
}

photograph ""
photograph -dark --dark
photograph -german --language de
if [ $# -gt 1 ]; then
  photograph -large --percent 200
  photograph -german-large --percent 200 --language de --dark
  "$build/bin/corvane-bench" new "$work/empty.json" --from empty >/dev/null
  take "$work/empty.json" -empty
  take tests/data/dumps/20151104-093000 -dump --dump
  take tests/data/dumps/desktop-2013-cut.txt -german-dump --dump --language de
fi

mkdir -p docs/screenshots
keep() { cp "$shots/$1.png" "docs/screenshots/$2.png"; }
keep corvane2-16g-fc-port main-window
keep open-corvane3-f2-port-dark fibre-channel-port-dark
keep open-corvane2-16g-fc-device fibre-channel-device
keep open-corvane2-10g-sfp+-port ethernet-port
keep address-matrix address-matrix
keep updates updates
keep open-corvane2-8g-fc-port-german german
