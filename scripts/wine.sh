# shellcheck shell=bash
# For scripts that run Windows programs: a Wine of the build folder's own. Source it in the root; whoever starts it has
# to see to it that it is stopped.

# Its server stays meanwhile: to start it anew for every program costs more than most programs do.
start_wine() {
  export WINEPREFIX=$PWD/build/wine WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES="winemenubuilder.exe="
  unset DISPLAY
  mkdir -p "$WINEPREFIX"
  wine_server -p || true  # one may be running already
  # Its services live on, and would keep a pipe open that somebody reads to the end.
  timeout 300 wine wineboot --init >"$PWD/build/wine.log" 2>&1
}

stop_wine() { wine_server -k || true; }

wine_server() {
  local server
  server=$(command -v wineserver || echo /usr/lib/wine/wineserver)
  if [ -x "$server" ]; then WINEPREFIX=$PWD/build/wine "$server" "$@"; fi
}
