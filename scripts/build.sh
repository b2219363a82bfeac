# shellcheck shell=bash
# Configuring and building one preset quietly. To be sourced after common.sh.

# build_preset PRESET [TARGET...]: brings build/PRESET up to date, or only these targets of it. Says one line when
# there is something to do, and shows the tools' own output only when they fail. Ends the script when they do.
build_preset() {
  local folder=$root/build/$1
  mkdir -p -- "$folder"
  # One build at a time in a folder: two ninjas would tread on each other's files. The lock goes with the subshell,
  # and so is not held by the programs started afterwards.
  (
    flock 9
    configure_preset "$1" "$folder"
    run_ninja "$folder" "${@:2}"
  ) 9>"$folder/.lock" || exit 1
}

# Ninja configures again by itself when a CMakeLists.txt changed, so this is for the first time, and for the presets,
# which ninja does not know. build.ninja is written last: without it an earlier attempt did not get through.
configure_preset() {
  local preset=$1 folder=$2
  [[ -f $folder/build.ninja && ! $root/CMakePresets.json -nt $folder/build.ninja ]] && return
  note "Configuring build/$preset ..."
  if ! (cd -- "$root" && cmake --preset "$preset") >"$folder/configure.log" 2>&1; then
    show_log_end "$folder/configure.log" 40
    fail "cmake could not configure build/$preset"
  fi
}

run_ninja() {
  local folder=$1
  [[ $(ninja -C "$folder" -n "${@:2}" 2>/dev/null | tail -n 1) == "ninja: no work to do." ]] && return
  note "Building ${folder#"$root/"} ..."
  if ! ninja -C "$folder" -j "$(nproc)" "${@:2}" >"$folder/build.log" 2>&1; then
    # The lines "[12/80] Building ..." only tell how far it came.
    grep -v '^\[[0-9]*/[0-9]*\]' -- "$folder/build.log" | tail -n 100 >&2 || true
    fail "the build failed; all of its output is in $folder/build.log"
  fi
}
