#!/usr/bin/env bash
# soak.sh BUILD MINUTES: looks for faults in rounds until the time is over, each round with a new seed:
# the monkey, random games, kills, hostile databases, full disks, two boards at one table, and every
# fuzzer. BUILD has the builds `asan` and `fuzz`. What was found is kept in BUILD/soak/faults.
# `./dtb soak` builds everything first.
set -euo pipefail

build=$1
deadline=$((SECONDS + $2 * 60))
faults=$build/soak/faults
gestures_a_round=2000
games_a_round=100
kills_a_round=25
spoils_a_round=100
databases_a_round=40
disks_a_round=20
turns_a_round=150
fuzz_seconds=15

rounds=0 gestures=0 games=0 save_kills=0 copy_kills=0 recovery_kills=0 spoils=0 databases=0 disks=0 turns=0 inputs=0 found=0
mkdir -p -- "$faults"
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}
export ASAN_OPTIONS=${ASAN_OPTIONS:-intercept_tls_get_addr=0}

sums() {
  printf '%s rounds: %s gestures, %s random games, %s kills of saves, %s of copies, %s of recovery, %s spoiled old databases, %s hostile databases, %s full disks, %s gestures of two boards, %s inputs of fuzzers, %s faults\n' \
    "$rounds" "$gestures" "$games" "$save_kills" "$copy_kills" "$recovery_kills" "$spoils" "$databases" "$disks" "$turns" "$inputs" "$found"
}

time_is_over() { ((SECONDS >= deadline)); }

# fault OUTPUT COMMAND: tells of it, and goes on.
fault() {
  found=$((found + 1))
  printf '\nFAULT. The whole output is in %s; its end:\n' "$1" >&2
  tail -n 25 -- "$1" >&2
  printf 'To see it again: %s\n\n' "$2" >&2
}

# look NAME COMMAND...: environment assignments may come first. False after a fault.
look() {
  local output=$faults/$1-$seed.txt
  shift
  if env "$@" >"$output" 2>&1; then
    rm -- "$output"
  else
    fault "$output" "env$(printf ' %q' "$@")"
    return 1
  fi
}

play_monkey() {
  look monkey DTB_SEED="$seed" DTB_GESTURES=$gestures_a_round QT_QPA_PLATFORM=offscreen \
    "$build/asan/dtb_window_tests" '--gtest_filter=MonkeyTest.*' || return 0
  gestures=$((gestures + 2 * gestures_a_round))  # two monkeys
}

play_random_games() {
  look games DTB_SEED="$seed" RC_PARAMS="seed=$seed max_success=$games_a_round" \
    "$build/asan/dtb_core_tests" '--gtest_filter=EveryGame*' || return 0
  games=$((games + games_a_round))
}

# Two tests: at any step, and within a write. So has the recovery.
kill_saves() {
  look saves DTB_SEED="$seed" DTB_KILLS=$kills_a_round \
    "$build/asan/dtb_database_tests" '--gtest_filter=SaveKills.*' || return 0
  save_kills=$((save_kills + 2 * kills_a_round))
}

# Four tests: a copy made, brought back, put in the place of a damaged database, an old one taken over.
kill_copies() {
  look copies DTB_SEED="$seed" DTB_KILLS=$kills_a_round \
    "$build/asan/dtb_database_tests" '--gtest_filter=CopyKills.*' || return 0
  copy_kills=$((copy_kills + 4 * kills_a_round))
}

kill_recovery() {
  look recovery DTB_SEED="$seed" DTB_KILLS=$kills_a_round \
    "$build/asan/dtb_recovery_tests" '--gtest_filter=RecoveryFile.Survives*' || return 0
  recovery_kills=$((recovery_kills + 2 * kills_a_round))
}

spoil_old_databases() {
  look spoils DTB_SEED="$seed" DTB_SPOILS=$spoils_a_round \
    "$build/asan/dtb_database_tests" '--gtest_filter=OldDatabaseTest.SpoiledFiles' || return 0
  spoils=$((spoils + spoils_a_round))
}

use_hostile_databases() {
  look hostile DTB_SEED="$seed" DTB_DATABASES=$databases_a_round \
    "$build/asan/dtb_database_tests" '--gtest_filter=HostileDatabase.*' || return 0
  databases=$((databases + databases_a_round))
}

# Each disk is one for every use of the database.
fill_disks() {
  look disks DTB_SEED="$seed" DTB_DISKS=$disks_a_round \
    "$build/asan/dtb_database_tests" '--gtest_filter=FullDiskOfTheDatabase.*' || return 0
  disks=$((disks + disks_a_round))
}

# In turns, and at the same time.
play_two_boards() {
  look boards DTB_SEED="$seed" DTB_GESTURES=$turns_a_round \
    "$build/asan/dtb_database_tests" '--gtest_filter=InTurns.*:TwoBoards.*' || return 0
  turns=$((turns + 2 * turns_a_round))
}

# An input that shows a fault is kept, and the next rounds begin with what this one learnt.
fuzz() {
  local program=$1 name=${1##*/fuzz_} output made input=
  local learnt=$build/soak/corpus/$name
  output=$faults/$name-$seed.txt
  mkdir -p -- "$learnt"
  if ASAN_OPTIONS=detect_leaks=0 "$program" -seed="$seed" \
    -max_total_time=$fuzz_seconds -timeout=120 -rss_limit_mb=4096 -max_len=65536 \
    -print_final_stats=1 -artifact_prefix="$faults/$name-" "$learnt" "$build/fuzz/corpus/$name" \
    >"$output" 2>&1; then
    made=$(sed -n 's/^stat::number_of_executed_units: *//p' "$output")
    inputs=$((inputs + ${made:-0}))
    rm -- "$output"
  else
    input=$(sed -n 's/.*Test unit written to //p' "$output" | tail -n 1)
    # A program that did not get as far as an input is started as it was.
    fault "$output" "env ASAN_OPTIONS=detect_leaks=0 $(printf '%q %q' "$program" "${input:--seed=$seed}")"
  fi
}

until time_is_over; do
  seed=$((RANDOM << 15 | RANDOM))
  rounds=$((rounds + 1))
  echo "Round $rounds, seed $seed"
  for step in play_monkey play_random_games kill_saves kill_copies kill_recovery spoil_old_databases \
    use_hostile_databases fill_disks play_two_boards; do
    time_is_over || "$step"
  done
  for fuzzer in "$build"/fuzz/fuzz_*; do
    time_is_over || fuzz "$fuzzer"
  done
  sums
done
((found == 0)) || {
  echo "What was found is kept in $faults." >&2
  exit 1
}
