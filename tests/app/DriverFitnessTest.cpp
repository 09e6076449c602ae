#include "discovery/DriverFitness.h"

#include <gtest/gtest.h>

using namespace corvane;

namespace {

struct VersionRow {
  int64_t product;
  const char* version;
  int64_t result;
};

class DriverFitnessTest : public ::testing::TestWithParam<VersionRow> {};

}  // namespace

TEST_P(DriverFitnessTest, ComparesWithTheThresholds) {
  const auto family = static_cast<AdapterFamily>(GetParam().product);
  EXPECT_EQ(compareDriverVersion(family, GetParam().version), GetParam().result)
      << GetParam().version;
}

INSTANTIATE_TEST_SUITE_P(FibreChannel, DriverFitnessTest,
                         ::testing::Values(VersionRow{1, "1.0.44", 1}, VersionRow{1, "1.0.45", 0},
                                           VersionRow{1, "1.0.46", 0}, VersionRow{1, "1.1.0", 0},
                                           VersionRow{1, "1.12.3", 0}, VersionRow{1, "0.9.0", 2},
                                           VersionRow{1, "0.0.0", 2}, VersionRow{1, "-1.0.0", 2},
                                           VersionRow{1, "2.0.0", 0}, VersionRow{1, "3.4.5", 0},
                                           VersionRow{1, "10.0.0", 0}, VersionRow{1, "1.0.044", 1},
                                           VersionRow{1, "1", 1}, VersionRow{1, "1.0", 1},
                                           VersionRow{1, "", 2}, VersionRow{1, "abc", 2},
                                           VersionRow{1, "1.0.45.9", 0},
                                           VersionRow{1, "1.0.9999999999999999999999", 0}));

INSTANTIATE_TEST_SUITE_P(TenGigabit, DriverFitnessTest,
                         ::testing::Values(VersionRow{2, "1.3.5", 1}, VersionRow{2, "1.3.6", 0},
                                           VersionRow{2, "1.3.7", 0}, VersionRow{2, "1.4.0", 0},
                                           VersionRow{2, "0.0.0", 1}, VersionRow{2, "9.0.5", 1},
                                           VersionRow{2, "0.4.0", 0}, VersionRow{2, "1.10.0", 0},
                                           VersionRow{2, "", 1}, VersionRow{2, "1.3", 1}));

INSTANTIATE_TEST_SUITE_P(NoFamily, DriverFitnessTest,
                         ::testing::Values(VersionRow{0, "2.0.0", 2}, VersionRow{3, "2.0.0", 2},
                                           VersionRow{-1, "2.0.0", 2}));
