#!/bin/sh
# Prints docs/command.md: its own beginning, and the help of every command.
# Usage: command/make_manual.sh docs/command.md OUTLINE...; OUTLINE is the command with its words.
set -eu
manual=$1
shift
unset OUTLINE_STORE
sed '/^## Commands$/q' "$manual"
names=$("$@" help | sed -n '/^Subcommands:/,$s/^  \([a-z][a-z-]*\) .*/\1/p')
for name in $names; do
  printf '\n### outline %s\n\n```\n' "$name"
  "$@" help "$name"
  printf '```\n'
done
