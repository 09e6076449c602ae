#include "pages/DriverVersionComparison.h"

using namespace corvane;

namespace {

struct VersionRow {
  int64_t product;
  const char* version;
  int64_t result;
};

class DriverVersionComparisonTest : public ::testing::TestWithParam<VersionRow> {};

}  // namespace

TEST_P(DriverVersionComparisonTest, ComparesWithTheThresholds) {
  ControllerState state;
  state.intProduct = GetParam().product;
  state.driverVersion_8G = GetParam().version;
  state.driverVersion_10G = GetParam().version;
  EXPECT_EQ(DriverVersionComparison(state).compareDriverVersion(), GetParam().result)
      << GetParam().version;
}

INSTANTIATE_TEST_SUITE_P(FibreChannel, DriverVersionComparisonTest,
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

INSTANTIATE_TEST_SUITE_P(TenGigabit, DriverVersionComparisonTest,
                         ::testing::Values(VersionRow{2, "1.3.5", 1}, VersionRow{2, "1.3.6", 0},
                                           VersionRow{2, "1.3.7", 0}, VersionRow{2, "1.4.0", 0},
                                           VersionRow{2, "0.0.0", 1}, VersionRow{2, "9.0.5", 1},
                                           VersionRow{2, "0.4.0", 0}, VersionRow{2, "1.10.0", 0},
                                           VersionRow{2, "", 1}, VersionRow{2, "1.3", 1}));

INSTANTIATE_TEST_SUITE_P(NoFamily, DriverVersionComparisonTest,
                         ::testing::Values(VersionRow{0, "2.0.0", 2}, VersionRow{3, "2.0.0", 2},
                                           VersionRow{-1, "2.0.0", 2}));
