# Prints the run that a solver found, state by state: the location and the clock of every process,
# and before each time step how much time it lets pass.
#
#   cadical -q RUN.cnf | awk -f decode.awk RUN.lck -
#   minisat RUN.cnf ANSWER;  awk -f decode.awk RUN.lck ANSWER
#
# docs/formats.md, "Reading an answer", does the same by hand.

NR == FNR { map[FNR] = $0; next }

# Of an answer only the positive numbers count. Numbers above the highest problem variable are
# formula nodes.
{
  for (i = 1; i <= NF; i++) {
    if ($i + 0 != 0) answered = 1
    if ($i + 0 > 0 && $i + 0 <= map[5] + 0) isTrue[$i + 0] = 1
  }
}

# The next `width` variables as a number, the lowest bit first.
function number(width,    bit, n) {
  for (bit = 0; bit < width; bit++) n += isTrue[++variable] * 2 ^ bit
  return n + 0
}

function print_state(s,    p, row, clock) {
  row = "state " s ":  at"
  for (p = 1; p <= processes; p++) row = row " " number(locationBits[p])
  for (p = 0; p <= processes; p++) clock[p] = number(integerBits)
  number(fractionBits)  # the split value
  for (p = 0; p <= processes; p++) clock[p] += number(fractionBits) / 2 ^ fractionBits
  row = row "  clocks"
  for (p = 1; p <= processes; p++) row = row " " clock[p]
  print row (s % 3 == 0 && s < steps ? "  then time " clock[0] : "")
}

END {
  if (!answered) { print "no run in this answer"; exit 1 }
  processes = map[1]
  split(map[2], locationBits)
  split(map[3], widths)
  integerBits = widths[2]
  fractionBits = widths[3]
  steps = map[4]
  for (s = 0; s <= steps; s++) print_state(s)
}
