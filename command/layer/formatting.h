// fmt as this command uses it: header-only, so that nothing has to be installed beside it.
#pragma once

#ifndef FMT_HEADER_ONLY
#define FMT_HEADER_ONLY
#endif
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
#include <fmt/format.h>
#pragma GCC diagnostic pop
