#!/usr/bin/env bash
# The tests of the desk and of the page: in Chromium, from their files on disk, with Node's own test runner, whose last
# lines count them.
# Options go to it. DESK_BROWSER=firefox takes Firefox instead, where it is installed. With DESK_PICTURES=FOLDER the
# pictures of the steps are kept there.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

source scripts/lib/one_at_a_time.sh
source scripts/lib/release_build.sh
source scripts/lib/part_times.sh

scripts/setup
scripts/setup --desk-tests
start_part "desk: build"
build_release pedigreewatch pedigreewatch_tools make_population
scripts/desk
if ! [[ -d desk/tests/node_modules/puppeteer-core && -d desk/tests/node_modules/axe-core ]]; then
  (cd desk/tests && npm ci --ignore-scripts --no-audit --no-fund --silent)
fi
start_part "desk: tests"
# A browser waits most of its time: three files at once, where Node can.
at_once=()
if node --help | grep -q -e --test-concurrency; then at_once=(--test-concurrency=3); fi
node --test "${at_once[@]}" --test-timeout=900000 "$@" desk/tests/*.test.mjs
say_parts
