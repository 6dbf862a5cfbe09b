// An outline API that costs next to nothing: one dimension whose members lie in arrays, with just
// the functions that listings call. Records are handed out where they lie and nothing is counted,
// so what remains of a listing's time is the library's own.
#pragma once

#include <cstdint>

#include "api/records.h"

namespace bench {

// The handle of the one outline.
inline constexpr HOutline kFlatOutline = 1;
// The handle of the one dimension; the members below it follow.
inline constexpr HMember kFlatDimension = 1;

// Adds a member below the dimension with `children` leaves, which have consecutive handles.
// `*first` receives the first leaf. Handle of the new member.
HMember add_flat_parent(uint32_t children, HMember* first);

// Record of a leaf. Leaves share a few hundred records.
const MemberInfoRecord& flat_leaf_record(HMember leaf);

}  // namespace bench
