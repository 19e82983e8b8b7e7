#include <gtest/gtest.h>

#include "tests/neighbours/Child.h"

int wmain(int argc, wchar_t** argv) {
  if (neighbours::playRole(argc, argv)) return 0;
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
