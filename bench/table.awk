# The lines that bench/table measures (their layouts are told there) as two tables: what was
# measured, and the goals. The exit status is 1 where one is missed.

function of(net, k) { return net " k=" k }

function goal(figure, runs, value, most, digits,    verdict) {
  verdict = small == "yes" ? "not judged" : value <= most ? "met" : "missed"
  if (verdict == "missed") missed = 1
  goals[++nr] = sprintf("%-34s %-36s %8.*f %8s  %s", figure, runs, digits, value, most, verdict)
}

function heading() {
  printf "%-23s %9s %30s %12s\n", "", "", "CPU of a clause, ns:", "memory,"
  printf "%-23s %9s %8s %10s %10s %12s\n", "", "clauses", "run", "writing", "CaDiCaL", "bytes/clause"
}

NR == 1 { heading() }

$1 == "run" || $1 == "pace" {
  clauses = $4; cpu = $5; memory = 1024 * $7 / clauses; writing = $8; reading = $10
  if ($9 != clauses) { print "floor has written " $9 " clauses of " clauses; exit missed = 1 }
  ns = 1e9 / clauses
  printf "%-23s %9d %8.1f %10.1f %10s %12.1f\n", of($2, $3), clauses, ns * cpu, ns * writing,
    $1 == "run" ? sprintf("%.1f", ns * reading) : "", memory
  goal("CPU: run / writing alone", of($2, $3), cpu / writing, $1 == "run" ? 2 : 3, 2)
  if ($1 == "run") goal("CPU: run / CaDiCaL reading", of($2, $3), cpu / reading, 0.25, 3)
  goal("peak memory, bytes a clause", of($2, $3), memory, 36, 1)
}

$1 == "compare" {
  goal("CPU a clause: one run / another", of($2, $3) " / " of($5, $6), ($8 / $4) / ($11 / $7),
       $2 == $5 ? 1.2 : 1.5, 2)
}

$1 == "tiny" {
  goal("wall time beyond two free, ms", of($2, $3), 1000 * ($4 - $5), 2, 2)
}

END {
  printf "\n%-34s %-36s %8s %8s\n", "figure", "", "measured", "at most"
  for (i = 1; i <= nr; i++) print goals[i]
  exit missed
}
