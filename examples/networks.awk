# The networks that examples/make prints, and their properties. Variables: name, size, property,
# and for random networks transitions and seed. Exit status 3: there is no such network or property.
#
# A network is collected transition by transition, each followed by the moves of the processes that
# take part in it, and printed process by process at the end. Transitions and processes count from
# 1, locations from 0, where every process starts.
#
# (1) An interval counts from the moment the last of its processes came to the source location,
#     staying there by a move included. Where a span of time belongs to one process, it is therefore
#     on a transition of that process alone, and what follows with others follows at once: 0 0.
# (2) Proposition numbers do not depend on the size: below 10 for the network as a whole, and
#     10 * i + kind for the i-th process, train, station or pair.
# (3) Plain POSIX awk and no rand(), so that every awk prints the same.

# ---- collecting and printing ---------------------------------------------------------------------

# A new transition; -1 as the latest time sets no limit.
function transition(earliest, latest) { interval[++nr_transitions] = earliest " " latest }

# What the newest transition does to a process.
function move(process, source, target) {
  moves[process, ++nr_moves[process]] = nr_transitions " " source " " target
}

function alone(earliest, latest, process, source, target) {
  transition(earliest, latest)
  move(process, source, target)
}

function label(process, place, propositions) {
  labels[process, ++nr_labels[process]] = place " " propositions
}

function print_network(    t, p, i) {
  print title
  print "transitions"
  for (t = 1; t <= nr_transitions; t++) print t, interval[t]
  print "endtran"
  for (p = 1; p <= nr_processes; p++) {
    print "process"
    for (i = 1; i <= nr_moves[p]; i++) print moves[p, i]
    print "valuation"
    for (i = 1; i <= nr_labels[p]; i++) print labels[p, i]
    print "endval"
    print "end"
  }
  print "end"
}

# ---- properties, in postfix ----------------------------------------------------------------------

# The proposition of this kind for all of 1 to last.
function every(kind, last,    i, text) {
  for (i = 1; i <= last; i++) text = text "p" 10 * i + kind (i > 1 ? "&" : "")
  return text
}

# The proposition of this kind for at least two of 1 to size.
function some_two(kind,    i, j, text) {
  for (i = 1; i <= size; i++)
    for (j = i + 1; j <= size; j++)
      text = text "p" 10 * i + kind "p" 10 * j + kind "&" (text == "" ? "" : "+")
  return text
}

# ---- Fischer's protocol --------------------------------------------------------------------------
# Processes 1 to size, then the shared variable, whose location is the value it holds.

function fischer(write_latest, read_earliest,    i, v) {
  title = name " " size ": writes within " write_latest ", reads after " read_earliest
  idle = 0; asking = 1; writing = 2; waiting = 3; reading = 4; critical = 5
  nr_processes = size + 1
  for (i = 1; i <= size; i++) {
    access(-1, i, idle, asking, 0, 0)
    alone(0, write_latest, i, asking, writing)
    for (v = 0; v <= size; v++) access(0, i, writing, waiting, v, i)
    alone(read_earliest, 3, i, waiting, reading)
    for (v = 0; v <= size; v++) access(0, i, reading, v == i ? critical : idle, v, v)
    for (v = 0; v <= size; v++) access(-1, i, critical, idle, v, 0)
    label(i, critical, 1 " " 10 * i + 1)
  }
  known["critical"] = "p1"
  known["violation"] = some_two(1)
}

# A process's access to the variable, which holds `before` and then `after`.
function access(latest, process, source, target, before, after) {
  transition(0, latest)
  move(process, source, target)
  move(size + 1, before, after)
}

# ---- railway crossing ----------------------------------------------------------------------------
# Trains 1 to size, then a counter of the trains that are about, the controller, and the gate.

function crossing(lowering_latest,    i) {
  title = name " " size ": the gate takes 1 to " lowering_latest " to come down"
  far = 0; near = 1; inside = 2; past = 3
  at_rest = 0; alerted = 1; lowers = 2; closed = 3; released = 4; raises = 5
  up = 0; lowering = 1; down = 2; raising = 3
  counter = size + 1; controller = size + 2; gate = size + 3
  nr_processes = size + 3

  for (i = 1; i <= size; i++) train(i)

  alone(0, 1, controller, alerted, lowers)
  order(lowers, closed, up, lowering)
  order(lowers, closed, raising, lowering)
  alone(0, 1, controller, released, raises)
  order(raises, at_rest, down, raising)

  alone(1, lowering_latest, gate, lowering, down)
  alone(1, 2, gate, raising, up)
  label(gate, down, 2)
  label(gate, raising, 4)

  known["down"] = "p2"
  known["danger"] = "p1p-2&"
  known["hurried"] = "p3p4&"
  known["together"] = every(1, size)
}

# The controller hears of the first train to come near and of the last to have passed.
function train(i,    trains) {
  report(-1, i, far, near, 0, 1, at_rest, alerted)
  report(-1, i, far, near, 0, 1, released, closed)
  report(-1, i, far, near, 0, 1, raises, closed)
  for (trains = 1; trains < size; trains++) count(-1, i, far, near, trains, trains + 1)
  alone(4, 6, i, near, inside)
  alone(1, 2, i, inside, past)
  report(0, i, past, far, 1, 0, closed, released)
  for (trains = 2; trains <= size; trains++) count(0, i, past, far, trains, trains - 1)
  label(i, near, 3)
  label(i, inside, 1 " " 10 * i + 1)
}

function count(latest, i, source, target, before, after) {
  transition(0, latest)
  move(i, source, target)
  move(counter, before, after)
}

function report(latest, i, source, target, before, after, heard, reacts) {
  count(latest, i, source, target, before, after)
  move(controller, heard, reacts)
}

# The controller orders the gate to move.
function order(source, target, gate_source, gate_target) {
  transition(0, 0)
  move(controller, source, target)
  move(gate, gate_source, gate_target)
}

# ---- token ring ----------------------------------------------------------------------------------
# Stations 1 to size and a monitor. Station 1 starts with the token, hence its other numbering.

function ring(patience,    i) {
  title = name " " size ": the monitor waits " patience " for the token"
  for (i = 1; i <= size; i++) {
    without[i] = i == 1 ? 2 : 0
    holding[i] = i == 1 ? 0 : 1
    sending[i] = i == 1 ? 1 : 2
  }
  nr_processes = size + 1
  for (i = 1; i <= size; i++) {
    alone(0, 1, i, holding[i], sending[i])
    hand_on(0, 1, i, holding[i])
    hand_on(1, 2, i, sending[i])
    label(i, holding[i], 2 " " 10 * i + 1)
    label(i, sending[i], 2 " " 10 * i + 1 " " 10 * i + 2)
  }
  alone(patience, patience, size + 1, 0, 1)
  alone(0, 0, size + 1, 1, 0)
  label(size + 1, 1, 1)

  known["last"] = "p" 10 * size + 2
  known["alarm"] = "p1"
  known["lost"] = "p-2"
  known["two"] = some_two(1)
}

# Station i hands the token to the next; the monitor sees it come back to station 1.
function hand_on(earliest, latest, i, source,    successor) {
  successor = i % size + 1
  transition(earliest, latest)
  move(i, source, without[i])
  move(successor, without[successor], holding[successor])
  if (successor == 1) move(size + 1, 0, 0)
}

# ---- hand-shake ----------------------------------------------------------------------------------
# Pairs 1 to size: sender 2 * i - 1 and receiver 2 * i.

function handshake(patience,    i, sender, receiver) {
  title = name " " size ": the sender waits " patience " for the answer"
  idle = 0
  waiting = 1; gave_up = 2   # a sender
  working = 1; done = 2      # a receiver
  nr_processes = 2 * size
  for (i = 1; i <= size; i++) {
    sender = 2 * i - 1
    receiver = 2 * i
    transition(0, 2)
    move(sender, idle, waiting)
    move(receiver, idle, working)
    alone(1, 3, receiver, working, done)
    transition(0, 0)
    move(sender, waiting, idle)
    move(receiver, done, idle)
    alone(patience, patience, sender, waiting, gave_up)
    alone(1, 1, sender, gave_up, idle)
    alone(1, 1, receiver, done, idle)
    label(sender, waiting, 10 * i + 1)
    label(sender, gave_up, 1)
    label(receiver, working, 10 * i + 2)
    known["stale"] = known["stale"] "p-" 10 * i + 1 "p" 10 * i + 2 "&" (i > 1 ? "+" : "")
  }
  known["busy"] = every(2, size)
  known["timeout"] = "p1"
}

# ---- random networks -----------------------------------------------------------------------------
# The transitions are dealt out to the processes in turn. The first of a process are its own alone
# and lead once round its locations, so that it can get everywhere; the others lead anywhere, and
# every second of them is shared with another process.

# Uniform in 0 .. n - 1. The products stay below 2^53, where awk's numbers are exact.
function random(n) {
  state = state * 48271 % 2147483647
  return int(state / 65536) % n
}

function random_interval(t,    earliest, latest) {
  earliest = random(4)
  latest = earliest + 1 + random(4)
  if (random(4) == 0) latest = -1
  transition(earliest, t == 1 ? 4 : latest)  # the largest latest time is above every earliest one
}

function random_network(    t, p, q, round, places) {
  title = name " " size " " transitions " " seed
  nr_processes = size
  state = seed
  random(1)  # the first two numbers from a small seed are small themselves
  random(1)
  for (p = 1; p <= size; p++) places[p] = 2 + random(min(int(transitions / size) - 1, 7))
  for (t = 1; t <= transitions; t++) {
    p = (t - 1) % size + 1
    round = int((t - 1) / size)
    random_interval(t)
    if (round < places[p]) {
      move(p, round, (round + 1) % places[p])
    } else {
      move(p, random(places[p]), random(places[p]))
      if (random(2) == 0) {
        q = (p + random(size - 1)) % size + 1
        move(q, random(places[q]), random(places[q]))
      }
    }
  }
  for (p = 1; p <= size; p++) label(p, places[p] - 1, 1 " " 10 * p + 1)
  known["one"] = "p1"
  known["three"] = every(1, min(size, 3))
}

function min(a, b) { return a < b ? a : b }

# ---- choosing ------------------------------------------------------------------------------------

BEGIN {
  size += 0
  if (name == "fischer" && size > 1) fischer(1, 2)
  else if (name == "fischer-swapped" && size > 1) fischer(2, 1)
  else if (name == "crossing") crossing(2)
  else if (name == "crossing-slow") crossing(4)
  else if (name == "ring" && size > 1) ring(3 * size + 1)
  else if (name == "ring-hasty" && size > 1) ring(3 * size)
  else if (name == "handshake") handshake(4)
  else if (name == "handshake-hasty") handshake(2)
  else if (name == "random" && size > 1 && transitions >= 2 * size) random_network()
  else exit 3

  if (property == "") print_network()
  else if (property in known) print known[property]
  else exit 3
}
