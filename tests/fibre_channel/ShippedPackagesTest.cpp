#include <gtest/gtest.h>

#include <array>
#include <iterator>

#include "fibre_channel/FirmwareImageFile.h"
#include "platform/bench/file/BenchFirmwareImage.h"

using namespace corvane;

namespace {

/// The packages that come with the benches: what is in them, and what an adapter says to it.
class ShippedPackagesTest : public testing::Test {
 protected:
  ~ShippedPackagesTest() override { std::filesystem::remove(image); }

  ArchiveStatus verify(const std::string& name) {
    std::array<char, archiveVersionCapacity> text{};
    const ArchiveStatus status =
        CORVANE2Archive_Get_File_Version(path(name).c_str(), firmwareImageMember, text);
    version = text.data();
    return status;
  }

  std::optional<std::string> problem(const std::string& name) {
    EXPECT_TRUE(extractFirmwareImage(path(name), image).complete) << name;
    std::ifstream stream(image, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
    return checkFirmwareImage({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()},
                              header);
  }

  static std::string path(const std::string& name) {
    return CORVANE_SOURCE_DIR "/bench/packages/" + name;
  }

  std::string image = testing::TempDir() + "corvane_shipped_image";
  std::string version;
  BenchFirmwareImage header;
};

TEST_F(ShippedPackagesTest, GoodOnesHoldAnImageForTheirGeneration) {
  EXPECT_EQ(verify("corvane2-11.4.204.pkg"), ArchiveSuccess);
  EXPECT_EQ(version, "11.4.204");
  EXPECT_EQ(problem("corvane2-11.4.204.pkg"), std::nullopt);
  EXPECT_EQ(header, (BenchFirmwareImage{2, "11.4.204"}));

  EXPECT_EQ(verify("corvane3-12.0.193.pkg"), ArchiveSuccess);
  EXPECT_EQ(version, "12.0.193");
  EXPECT_EQ(problem("corvane3-12.0.193.pkg"), std::nullopt);
  EXPECT_EQ(header, (BenchFirmwareImage{3, "12.0.193"}));
}

TEST_F(ShippedPackagesTest, WrongHeaderIsFoundByTheAdapterOnly) {
  EXPECT_EQ(verify("wrong-header.pkg"), ArchiveSuccess);
  EXPECT_NE(problem("wrong-header.pkg"), std::nullopt);
}

TEST_F(ShippedPackagesTest, FaultyOnesAreTurnedAway) {
  EXPECT_EQ(verify("without-image.pkg"), ArchiveFileIdNotFound);
  EXPECT_EQ(verify("truncated.pkg"), ArchiveChecksumMismatch);
  EXPECT_EQ(verify("wrong-checksum.pkg"), ArchiveChecksumMismatch);
}

}  // namespace
