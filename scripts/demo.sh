# shellcheck shell=bash
# `./run demo [--keep]`: scans the example website and shows what came of it. To be sourced after common.sh,
# with the programs' paths in $cli and $window.
#
# Nothing of the user's is touched: the data folder lies in a throw-away home folder.

demo() {
  local keep=no
  case ${1-} in
    "") ;;
    --keep) keep=yes ;;
    *) fail "unknown option '$1'; usage: ./run demo [--keep]" ;;
  esac

  demo_home=$(mktemp -d -t veskel-demo-XXXXXX)
  # Also when the demo is interrupted.
  [[ $keep == yes ]] || trap 'rm -rf -- "$demo_home"' EXIT

  # The server lives as long as its standard input, which closes with this script whatever ends it.
  local url
  coproc SERVER { exec "$root/build/release/examples/veskel-example-server" "$root/examples/site"; }
  read -r -t 20 url <&"${SERVER[0]-}" || fail "the example server did not start"
  echo "The example website is served at $url"

  step veskel-cli add Example "$url"
  local status=0
  step veskel-cli scan Example || status=$?
  # 1: finished, and found broken pages. The example has some on purpose.
  ((status <= 1)) || exit "$status"
  step veskel-cli show Example

  show_files "$(demo_cli where Example)"
  if [[ -n ${DISPLAY-}${WAYLAND_DISPLAY-} ]]; then
    heading "The desktop application opens on it; close its window to end the demo."
    HOME=$demo_home "$window" || note "The window could not be opened."
  fi
  exec {SERVER[1]}>&-
  if [[ $keep == yes ]]; then
    heading "Kept in $demo_home (remove it when you are done)"
    echo "Look at it again with: HOME=$(printf %q "$demo_home") ./run show Example"
  else
    heading "All of this was written to a temporary folder, now removed (./run demo --keep keeps it)"
  fi
}

# demo_cli ARGUMENT...: the program, on the demo's own data folder.
demo_cli() {
  HOME=$demo_home "$cli" "$@"
}

# step veskel-cli ARGUMENT...: shows the command, then runs it.
step() {
  heading "\$ $*"
  demo_cli "${@:2}"
}

heading() {
  printf '\n%s\n' "$*"
}

# show_files FOLDER: what the scan wrote, and a look into it.
show_files() {
  heading "Written to $1:"
  (cd -- "$1" && stat --printf '%8s bytes  %n\n' -- *)
  heading "sitemap.xml begins:"
  head -n 12 -- "$1/sitemap.xml"
  heading "badLinks.txt, the broken pages:"
  cat -- "$1/badLinks.txt"
  echo
}
