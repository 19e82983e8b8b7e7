# shellcheck shell=bash
# For scripts that run Windows programs: a Wine of the build folder's own. Source it in the root.
wine_prefix=$PWD/build/wine

# For a few programs.
boot_wine() {
  export WINEPREFIX=$wine_prefix WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES="winemenubuilder.exe="
  unset DISPLAY
  mkdir -p "$wine_prefix"
  # Its services live on, and would keep a pipe open that somebody reads to the end.
  timeout 300 wine wineboot --init >"$PWD/build/wine.log" 2>&1
}

# For many: its server stays, since to start it anew for every program costs more than most programs do. Whoever starts
# it has to see to it that it is stopped.
start_wine() {
  mkdir -p "$wine_prefix"
  wine_server -p || true  # one may be running already
  boot_wine
}

stop_wine() { wine_server -k || true; }

wine_server() {
  local server
  server=$(command -v wineserver || echo /usr/lib/wine/wineserver)
  if [ -x "$server" ]; then WINEPREFIX=$wine_prefix "$server" "$@"; fi
}
