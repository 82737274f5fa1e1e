#!/usr/bin/env bash
# Non-blank lines of the tests against non-blank lines of the code they test
# (plugin/ engine/ editor/ view/ host/ bridge/; folders that do not exist yet
# count as empty). The tests should stay near a quarter to a third of the code.
set -euo pipefail
cd "$(dirname "$0")/.."

count() {  # folders...: non-blank lines of their C++ sources and headers
  local existing=()
  for d in "$@"; do [ -d "$d" ] && existing+=("$d"); done
  [ ${#existing[@]} -eq 0 ] && { echo 0; return; }
  find "${existing[@]}" -type f \( -name '*.cpp' -o -name '*.h' \) -print0 |
    xargs -0 -r cat | grep -c -v '^[[:space:]]*$' || true
}

code_folders=(plugin engine editor view host bridge)
tests=$(count tests)
code=$(count "${code_folders[@]}")
for d in "${code_folders[@]}"; do printf '%-8s %6s\n' "$d/" "$(count "$d")"; done
printf '%-8s %6s\n' "code" "$code" "tests/" "$tests"
awk -v t="$tests" -v c="$code" 'BEGIN { if (c > 0) printf "tests / code = %.2f\n", t / c }'
