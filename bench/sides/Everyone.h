#pragma once

#include "bench/Work.h"
#include "bench/sides/ByHand.h"
#include "bench/sides/Library.h"
#include "bench/sides/Libxmlpp.h"
#include "bench/sides/Pugixml.h"
#include "bench/sides/Walked.h"

namespace bench {

/// The sides of most work; that by hand, which the others are compared with, comes first.
using Everyone = Among<ByHand, Library, Libxmlpp, Pugixml, Walked>;

/// Without walks, where there is no other way than the usual one.
using Documents = Among<ByHand, Library, Libxmlpp, Pugixml>;

}  // namespace bench
