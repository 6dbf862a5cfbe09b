// Codes of member and outline records that this engine gives a meaning of its own; those that its
// callers know as well stand in api/types.h.
#pragma once

#include <cstdint>

namespace standin {

inline constexpr int16_t kCategoryCountry = 3;      // dimension category: countries and currencies
inline constexpr int16_t kShareLabelOnly = 3;       // share option: a heading that holds no data
inline constexpr int16_t kOutlineTypeCurrency = 1;  // outline type: derived for a currency database

}  // namespace standin
