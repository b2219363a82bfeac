# shellcheck shell=bash
# Small things that every script here needs. To be sourced.

# The checkout's folder, so that every script works from anywhere.
root=$(dirname -- "$(dirname -- "$(readlink -f -- "${BASH_SOURCE[0]}")")")

# What goes to the user beside a command's own output stands on standard error: `./run sites --json | jq` stays clean.
note() {
  printf '%s\n' "$*" >&2
}

fail() {
  printf 'error: %s\n' "$*" >&2
  exit 1
}

# show_log_end FILE LINES: the last lines of a log, set off from our own words.
show_log_end() {
  note "--- end of $1 ---"
  tail -n "$2" -- "$1" >&2 || true
  note "---"
}
