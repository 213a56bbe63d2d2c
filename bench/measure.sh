# Sourced by the *-vs-* scripts. measure LABEL COMMAND...: runs the command
# under /usr/bin/time and prints "seconds peak_kb". The log goes to
# $work/time-$measure_tag-LABEL.txt.
measure() {
  local log=$work/time-${measure_tag:-run}-$1.txt; shift
  /usr/bin/time -v "$@" >/dev/null 2>"$log"
  local wall rss
  wall=$(awk -F': ' '/Elapsed \(wall clock\)/ {print $2}' "$log")
  rss=$(awk -F': ' '/Maximum resident set size/ {print $2}' "$log")
  echo "$(echo "$wall" | awk -F: '{s=0; for(i=1;i<=NF;i++) s=s*60+$i; print s}') $rss"
}
