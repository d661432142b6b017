// Networks made by hand, with known answers.

#pragma once

#include "tests/endtoend/network.hpp"

// Fischer's protocol for 2 or more processes and, as the last process, the shared variable, whose
// location is the number of the process it names, 0 for none. A process asks while the variable
// names none, writes its own number within `writeLatest`, waits until at least `waitEarliest` has
// gone by since the variable was last touched, and enters if it is still named, in two more units
// at the latest; it may ask again where the variable names none. The property: the first two
// processes are both inside.
//
// With writeLatest < waitEarliest it never holds. Whoever enters has seen the variable at rest for
// waitEarliest, and as long as another has yet to write, the variable or that process's clock has
// to be at most writeLatest; that process asked, and so touched the variable, when its clock was
// reset. With writeLatest >= waitEarliest six transitions suffice: both ask, the first writes and
// enters, the second writes and enters. Fewer do not: each process needs three.
Network fischer(std::size_t processes, int writeLatest, int waitEarliest);

// A producer works for a time within [earliest, latest], then hands its piece over to a consumer in
// a transition of both, within one time unit, and starts again; the consumer holds the piece for a
// time within [1, 2]. The property: a finished piece waits while another is still held. It takes
// three transitions (work, hand, work), and is avoided just where all work takes longer than any
// holding.
Network handshake(int earliest, int latest);

// One transition, within [1, 2], from location 0 to 1, where the property holds and nothing is left
// to be done.
Network deadEnd();
