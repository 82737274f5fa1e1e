#!/usr/bin/env bash
# Mutation testing: plants one small fault at a time (a changed constant, a
# flipped comparison, a swapped argument, an off-by-one, a dropped call) in a
# scratch copy of the sources, rebuilds what changed, runs the test suite and
# says whether the suite noticed.
#
#   tools/mutants.sh                      every mutant of tools/mutants.txt
#   tools/mutants.sh --only ID...         just these mutants
#   tools/mutants.sh --under engine/      mutants of files below a folder (repeatable)
#   tools/mutants.sh --list               the mutants and whether each still applies; builds nothing
#   tools/mutants.sh --keep-going         run the whole suite for each mutant and keep every
#                                         failing test's name (slower; shows which tests catch what)
#   tools/mutants.sh --compare OLD NEW    mutants caught in results file OLD but not in NEW
#   tools/mutants.sh --tests REGEX        run only the tests whose names match (ctest -R), to see
#                                         what one part of the suite catches on its own
#
# Other options: --mutants FILE (another list), --out FILE (results, default
# build-mutants/results.txt), --timeout S (per test, default 60), --jobs N
# (ctest, default 2), --no-baseline (skip the check that the unmutated suite passes).
#
# A mutant's "from" text must occur exactly once in its file; otherwise the
# mutant is reported "stale" and left alone, so code that moved on shows up
# instead of the wrong place being mutated. A mutant that does not build is
# "invalid" (neither caught nor missed). A test that times out, or a test
# program that fails before it can list its tests, counts as caught.
#
# The scratch copy lives in build-mutants/ (source in src/, build in build/)
# and is kept between runs, so a second run rebuilds only what changed.
set -euo pipefail

repo="$(cd "$(dirname "$0")/.." && pwd)"
mutants_file="$repo/tools/mutants.txt"
work="$repo/build-mutants"
out=""
timeout=60
jobs=2
keep_going=0
baseline=1
mode=run
only=()
under=()
tests_regex=""

usage() { sed -n '2,/^set -euo/p' "$0" | sed '$d' | sed 's/^# \{0,1\}//'; }

while [ $# -gt 0 ]; do
  case "$1" in
    --only) shift; while [ $# -gt 0 ] && [ "${1#--}" = "$1" ]; do only+=("$1"); shift; done; continue ;;
    --under) under+=("${2%/}/"); shift ;;
    --tests) tests_regex="$2"; shift ;;
    --list) mode=list ;;
    --keep-going) keep_going=1 ;;
    --compare) mode=compare; compare_old="$2"; compare_new="$3"; shift 2 ;;
    --mutants) mutants_file="$(realpath "$2")"; shift ;;
    --out) out="$(realpath -m "$2")"; shift ;;
    --timeout) timeout="$2"; shift ;;
    --jobs) jobs="$2"; shift ;;
    --no-baseline) baseline=0 ;;
    -h|--help) usage; exit 0 ;;
    *) echo "mutants.sh: unknown option $1 (see --help)" >&2; exit 2 ;;
  esac
  shift
done
out="${out:-$work/results.txt}"

# ---- comparing two result files ----------------------------------------------
if [ "$mode" = compare ]; then
  lost="$(awk 'FNR == NR { if ($1 == "caught") was[$2] = 1; next }
               $1 ~ /^(MISSED|stale|invalid)$/ && was[$2] { print }' "$compare_old" "$compare_new")"
  absent="$(awk 'FNR == NR { if ($1 ~ /^(caught|MISSED|stale|invalid)$/) now[$2] = 1; next }
                 $1 == "caught" && !now[$2] { printf " %s", $2 }' "$compare_new" "$compare_old")"
  if [ -n "$absent" ]; then echo "caught in $compare_old, not run in $compare_new:$absent"; fi
  if [ -n "$lost" ]; then
    echo "caught in $compare_old but not in $compare_new:"
    echo "$lost"
    exit 1
  fi
  echo "every mutant caught in $compare_old and run in $compare_new is caught there"
  exit 0
fi

# ---- reading the list ------------------------------------------------------------
# Blocks of "key: value" lines (id, file, from, to, why) separated by blank
# lines; '#' starts a comment line. Spaces right after the colon are dropped.
ids=(); files=(); froms=(); tos=(); whys=()
declare -A seen=()
add_mutant() {
  [ -z "${m_id}${m_file}${m_from}${m_why}" ] && return 0
  local what
  for what in id file from why; do
    local v="m_$what"
    if [ -z "${!v}" ]; then echo "mutants.sh: $mutants_file: mutant '${m_id}' has no $what" >&2; exit 2; fi
  done
  if [ "$m_has_to" != 1 ]; then echo "mutants.sh: mutant '$m_id' has no to" >&2; exit 2; fi
  if [ "$m_from" = "$m_to" ]; then echo "mutants.sh: mutant '$m_id' changes nothing" >&2; exit 2; fi
  if [ -n "${seen[$m_id]:-}" ]; then echo "mutants.sh: mutant id '$m_id' appears twice" >&2; exit 2; fi
  seen[$m_id]=1
  ids+=("$m_id"); files+=("$m_file"); froms+=("$m_from"); tos+=("$m_to"); whys+=("$m_why")
}
reset_block() { m_id=""; m_file=""; m_from=""; m_to=""; m_has_to=0; m_why=""; }
reset_block
while IFS= read -r line || [ -n "$line" ]; do
  case "$line" in
    \#*) continue ;;
    "") add_mutant; reset_block; continue ;;
  esac
  key="${line%%:*}"
  value="${line#*:}"
  value="${value#"${value%%[! ]*}"}"
  case "$key" in
    id) m_id="$value" ;;
    file) m_file="$value" ;;
    from) m_from="$value" ;;
    to) m_to="$value"; m_has_to=1 ;;
    why) m_why="$value" ;;
    *) echo "mutants.sh: $mutants_file: unknown line: $line" >&2; exit 2 ;;
  esac
done < "$mutants_file"
add_mutant

for id in "${only[@]}"; do
  if [ -z "${seen[$id]:-}" ]; then echo "mutants.sh: no mutant '$id'" >&2; exit 2; fi
done

selected() {  # $1: index
  local i="$1" id d
  if [ ${#only[@]} -gt 0 ]; then
    for id in "${only[@]}"; do [ "$id" = "${ids[$i]}" ] && break; done
    [ "$id" = "${ids[$i]}" ] || return 1
  fi
  if [ ${#under[@]} -gt 0 ]; then
    for d in "${under[@]}"; do [ "${files[$i]#"$d"}" != "${files[$i]}" ] && return 0; done
    return 1
  fi
  return 0
}

# Prints the line number of the mutant's text in the file, or nothing when the
# file is missing or the text does not occur exactly once.
locate() {  # $1: file, $2: text
  [ -f "$1" ] || return 0
  MUT_FROM="$2" perl -0777 -ne '
    my $n = () = /\Q$ENV{MUT_FROM}\E/g;
    exit unless $n == 1;
    my $before = substr($_, 0, index($_, $ENV{MUT_FROM}));
    print 1 + ($before =~ tr/\n//), "\n";' "$1"
}

report() {  # status, index, where
  printf '%-8s %-30s %-38s %s\n' "$1" "${ids[$2]}" "$3" "${whys[$2]}"
}

# ---- listing -----------------------------------------------------------------------
if [ "$mode" = list ]; then
  for i in "${!ids[@]}"; do
    selected "$i" || continue
    line="$(locate "$repo/${files[$i]}" "${froms[$i]}")"
    if [ -n "$line" ]; then report ready "$i" "${files[$i]}:$line"; else report stale "$i" "${files[$i]}"; fi
  done
  exit 0
fi

# ---- the scratch copy ----------------------------------------------------------------
src="$work/src"
build="$work/build"
logs="$work/logs"
mkdir -p "$src" "$build" "$logs"
exec 9> "$work/lock"
flock -n 9 || { echo "mutants.sh: another run is using $work" >&2; exit 1; }

# Copies the working tree (tracked and untracked, not ignored) into src/.
# Changed files get a fresh time stamp so make rebuilds them; unchanged ones
# are left alone so the build stays incremental.
sync_sources() {
  local listing="$work/files.txt" f
  (cd "$repo" && git ls-files -co --exclude-standard | sort -u) > "$listing"
  while IFS= read -r f; do
    [ -f "$repo/$f" ] || continue
    if ! cmp -s "$repo/$f" "$src/$f"; then
      mkdir -p "$(dirname "$src/$f")"
      cp "$repo/$f" "$src/$f"
    fi
  done < "$listing"
  (cd "$src" && find . -type f -printf '%P\n' | sort) | comm -23 - "$listing" |
    while IFS= read -r f; do rm -f "$src/$f"; done
}

build_tree() {  # $1: log file
  cmake --build "$build" -j"$jobs" > "$1" 2>&1
}

failed_tests() {  # $1: ctest log
  sed -n '/The following tests FAILED:/,$p' "$1" | sed -n 's/^[[:space:]]*[0-9]* - \(.*\) (.*)$/\1/p' | paste -sd ' '
}

run_suite() {  # $1: log file, $2: 1 to stop at the first failure
  local stop=() select=()
  [ "$2" = 1 ] && stop=(--stop-on-failure)
  [ -n "$tests_regex" ] && select=(-R "$tests_regex")
  ctest --test-dir "$build" -j"$jobs" --timeout "$timeout" "${stop[@]}" "${select[@]}" > "$1" 2>&1
}

echo "mutants.sh: copying the sources to $src"
sync_sources
if [ ! -f "$build/CMakeCache.txt" ]; then
  cmake -S "$src" -B "$build" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_C_COMPILER_LAUNCHER=ccache > "$logs/configure.log" 2>&1 ||
    { echo "mutants.sh: configuring failed, see $logs/configure.log" >&2; exit 1; }
fi
echo "mutants.sh: building the unmutated copy"
build_tree "$logs/baseline-build.log" ||
  { echo "mutants.sh: the unmutated copy does not build, see $logs/baseline-build.log" >&2; exit 1; }
if [ "$baseline" = 1 ]; then
  echo "mutants.sh: running the suite on the unmutated copy"
  run_suite "$logs/baseline-tests.log" 0 ||
    { echo "mutants.sh: the suite fails without a mutant ($(failed_tests "$logs/baseline-tests.log")), see $logs/baseline-tests.log" >&2; exit 1; }
fi

# ---- one mutant at a time -------------------------------------------------------------------
backup="$work/original"
mutated=""
restore() {
  if [ -n "$mutated" ]; then
    cp "$backup" "$src/$mutated"
    touch "$src/$mutated"
    mutated=""
  fi
}
trap 'restore; exit 130' INT TERM
trap restore EXIT

: > "$out"
caught=0; missed=0; stale=0; invalid=0
start=$SECONDS
for i in "${!ids[@]}"; do
  selected "$i" || continue
  file="${files[$i]}"
  line="$(locate "$src/$file" "${froms[$i]}")"
  if [ -z "$line" ]; then
    report stale "$i" "$file" | tee -a "$out"
    stale=$((stale + 1))
    continue
  fi
  cp "$src/$file" "$backup"
  mutated="$file"
  MUT_FROM="${froms[$i]}" MUT_TO="${tos[$i]}" perl -0777 -i -pe 's/\Q$ENV{MUT_FROM}\E/$ENV{MUT_TO}/' "$src/$file"
  log="$logs/${ids[$i]}.log"
  t0=$SECONDS
  if ! build_tree "$log"; then
    if grep -q 'Error running test executable' "$log"; then
      # It compiled, but a test program fails before it can list its tests.
      status=caught; caught=$((caught + 1)); by="(a test program fails at start-up)"
    else
      status=invalid; invalid=$((invalid + 1)); by=""
    fi
  elif run_suite "$log.tests" "$((1 - keep_going))"; then
    status=MISSED; missed=$((missed + 1)); by=""
  else
    status=caught; caught=$((caught + 1)); by="$(failed_tests "$log.tests")"
  fi
  restore
  report "$status" "$i" "$file:$line" | tee -a "$out"
  {
    if [ -n "$by" ]; then echo "    by: $by"; fi
    echo "    $((SECONDS - t0)) s"
  } >> "$out"
done

summary="$caught caught, $missed missed"
if [ $((stale + invalid)) -gt 0 ]; then echo "$stale stale, $invalid invalid" | tee -a "$out"; fi
echo "$summary" | tee -a "$out"
echo "($((SECONDS - start)) s; results in $out, logs in $logs)" >&2
