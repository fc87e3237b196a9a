# What the scripts show of their work: a line a stage, with a progress that moves on a terminal, and the time that it
# took. What the tools print goes into a log, whose end is shown when a stage fails. For bash with `set -euo pipefail`;
# source it in the root of the tree.
#
# The lines go to standard error; standard output is left to results.

# begin_stages NAME: the script's name, which its messages and its log build/log/NAME.log carry.
begin_stages() {
  stages_name=script/$1 stages_log=build/log/$1.log stages_start=$EPOCHSECONDS stages_times=()
  mkdir -p build/log
  : >"$stages_log"
  trap 'exit 130' INT
}

# stage TITLE COMMAND…: runs COMMAND with all that it prints in the log, and ends the script when it fails. COMMAND may
# be a function; it runs in a subshell of its own.
stage() {
  local title=$1 start=$EPOCHSECONDS status
  shift
  [ -t 2 ] || printf '%s\n' "$title" >&2
  set +e
  (set -e; printf '== %s\n' "$title"; "$@") 2>&1 </dev/null | stages_follow "$title" "$start"
  status=${PIPESTATUS[0]}
  set -e
  case $status in
    0) ;;
    "$stages_refused") exit 2 ;;
    *) stages_fail "$title" "$start" "$status" ;;
  esac
  if [ -t 2 ]; then
    printf '\r\033[K%-*s %s\n' "$stages_width" "$title" "$(stages_time $((EPOCHSECONDS - start)))" >&2
  fi
  stages_note "$title" "$start"
}

# shown_stage TITLE COMMAND…: the same for a single command whose output is the result.
shown_stage() {
  local title=$1 start=$EPOCHSECONDS status=0
  shift
  printf '== %s\n' "$title"
  "$@" || status=$?
  if [ "$status" != 0 ]; then
    stages_tell "$title failed after $(stages_time $((EPOCHSECONDS - start)))."
    exit "$status"
  fi
  stages_note "$title" "$start"
}

# stage_beside TITLE COMMAND…: begins a stage whose work goes on beside the next ones, which come first where there is
# not enough of the processor for all; `stage_joined` waits for it. One at a time.
stage_beside() {
  beside_title=$1 beside_start=$EPOCHSECONDS
  shift
  printf '%s, beside what follows\n' "$beside_title" >&2
  set -m  # A group of its own, so that all of it can be ended.
  (set -e; renice -n 10 "$BASHPID" >/dev/null; printf '== %s\n' "$beside_title"; "$@") \
    >"$stages_log.beside" 2>&1 </dev/null &
  beside_job=$!
  set +m
  trap 'kill -- -"$beside_job" 2>/dev/null' EXIT
}

# stage_joined: ends the script if the stage beside has failed.
stage_joined() {
  local status=0
  wait "$beside_job" || status=$?
  trap - EXIT
  cat "$stages_log.beside" >>"$stages_log"
  rm "$stages_log.beside"
  [ "$status" = 0 ] || stages_fail "$beside_title" "$beside_start" "$status"
  stages_note "$beside_title" "$beside_start"
}

# refuse SENTENCE: ends a stage, or a script between its stages, with one sentence in place of the log's end.
refuse() {
  if [ "$BASH_SUBSHELL" = 0 ]; then
    stages_tell "$1"
    exit 2
  fi
  printf '%s%s\n' "$stages_refusal" "$1"
  exit "$stages_refused"
}

# stage_times: what each stage took, and the whole, a line each.
stage_times() {
  local each
  for each in "${stages_times[@]}"; do
    printf '%12s  %s\n' "$(stages_time "${each%% *}")" "${each#* }" >&2
  done
  printf '%12s  %s in all\n' "$(total_time)" "$stages_name" >&2
}

# total_time: the time since the beginning, in words.
total_time() { stages_time $((EPOCHSECONDS - stages_start)); }

stages_width=28
# How a refusal gets out of a stage: as a line that no tool prints, and as the status of its subshell.
stages_refusal=$'\001refused: '
stages_refused=77

stages_tell() { printf '%s: %s\n' "$stages_name" "$1" >&2; }

stages_time() {
  if [ "$1" -lt 60 ]; then printf '%d s' "$1"; else printf '%d min %02d s' $(($1 / 60)) $(($1 % 60)); fi
}

stages_note() { stages_times+=("$((EPOCHSECONDS - $2)) $1"); }

stages_fail() {
  if [ -t 2 ]; then printf '\r\033[K' >&2; fi
  stages_tell "$1 failed after $(stages_time $((EPOCHSECONDS - $2))). The end of $PWD/$stages_log:"
  tail -n 30 "$stages_log" | sed 's/^/  /' >&2
  exit "$3"
}

# Copies its input to the log, and what it tells of the progress to a terminal: ninja's counts and apt's percentages.
stages_follow() {
  local title=$1 start=$2 line begun='' progress='' status=0
  while [ "$status" = 0 ]; do
    IFS= read -r -t 1 line || status=$?
    line=$begun$line begun=''
    if [ "$status" -gt 128 ]; then  # A second has gone by.
      begun=$line status=0
    elif [[ $line =~ ^(dl|pm)status:.*:([0-9]+)\.[0-9]+: ]]; then
      case ${BASH_REMATCH[1]} in dl) progress=fetched ;; pm) progress=installed ;; esac
      progress+=" ${BASH_REMATCH[2]} %"
    elif [[ $line == "$stages_refusal"* ]]; then
      if [ -t 2 ]; then printf '\r\033[K' >&2; fi
      stages_tell "${line#"$stages_refusal"}"
      return
    elif [ -n "$line" ] || [ "$status" = 0 ]; then
      printf '%s\n' "$line" 2>/dev/null >>"$stages_log" || true  # A disk that is full is told of by the command.
      if [[ $line =~ ^\[([0-9]+)/([0-9]+)\]\  ]]; then progress="${BASH_REMATCH[1]} of ${BASH_REMATCH[2]}"; fi
    fi
    if [ -t 2 ]; then
      printf '\r\033[K%-*s %s%s' "$stages_width" "$title" "$(stages_time $((EPOCHSECONDS - start)))" \
        "${progress:+, $progress}" >&2
    fi
  done
}
