// fmt as this command uses it: in the program itself, so that nothing is to be installed beside it.
#pragma once

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
#include <fmt/format.h>
#pragma GCC diagnostic pop
