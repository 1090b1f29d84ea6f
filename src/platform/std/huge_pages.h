#pragma once

namespace sched {

// A large schedule fills tens of megabytes with rows and texts. Backed by small pages, a third of
// the time of opening it goes to page faults and most of the rest suffers from TLB misses; the
// C library backs its heap with huge pages when its "glibc.malloc.hugetlb" tunable says so.
// Tunables are read only when a program starts, so this starts the program again with the
// tunable set, unless it is set already (to any value: the user's choice stands). When that
// cannot be done the program goes on as it is. Call it first in main, before anything else.
void StartWithHugePages(char** argv);

}  // namespace sched
