// Starts the virtual machine, then the tests.
#include <gtest/gtest.h>

#include "tests/native/jvm.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  start_jvm();
  return RUN_ALL_TESTS();
}
