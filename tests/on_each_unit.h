// For tests that run with every kind of vector unit that this machine has.
#pragma once

#include <gtest/gtest.h>

#include "core/scan/vector_scan.h"

namespace tarvelo {

class OnEachUnit : public testing::TestWithParam<VectorUnit> {
 protected:
  void SetUp() override {
    LimitVectorUnit(GetParam());
    if (BestVectorUnit() != GetParam()) GTEST_SKIP() << "this machine has none";
  }
  void TearDown() override { LimitVectorUnit(VectorUnit::Avx2); }
};

inline const auto eachUnit = testing::Values(VectorUnit::None, VectorUnit::Sse2, VectorUnit::Avx2);

}  // namespace tarvelo
