#include <gmock/gmock.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <new>

#include "fibre_channel/CorvaneAPIFixture.h"

using namespace corvane;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Whether memory that is asked for without exceptions has run out, as the image's is.
bool imageMemoryIsUsedUp = false;

}  // namespace

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  if (imageMemoryIsUsedUp) return nullptr;
  try {
    return ::operator new[](size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

namespace {

using ImageBytes = std::vector<uint8_t>;

constexpr RegistryHandle imagePortService = 7;

class CorvaneAPIFirmware : public CorvaneAPIFixture {
 protected:
  CorvaneAPIFirmware() {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    userClient.answer = [this](RegistryHandle, uint32_t, std::span<const uint8_t> input,
                               std::span<uint8_t>) {
      size = wordAt(input, 0);
      zero = wordAt(input, 4);
      address = wordAt(input, 8) | uint64_t{wordAt(input, 12)} << 32;
      const auto* bytes = reinterpret_cast<const uint8_t*>(static_cast<uintptr_t>(address));
      seen.assign(bytes, bytes + size + 1);
      return driverStatus;
    };
  }
  ~CorvaneAPIFirmware() override { std::filesystem::remove_all(folder); }

  static uint32_t wordAt(std::span<const uint8_t> bytes, size_t offset) {
    uint32_t value = 0;
    for (size_t index = 4; index-- > 0;) value = value << 8 | bytes[offset + index];
    return value;
  }

  void writeImage(const ImageBytes& bytes) {
    std::ofstream stream(path, std::ios::binary);
    stream.write(reinterpret_cast<const char*>(bytes.data()),
                 static_cast<std::streamsize>(bytes.size()));
  }

  int64_t transfer() {
    return api.UpgradeELXFWUserClient(imagePortService, path.string(), &answered);
  }

  std::filesystem::path folder = std::filesystem::path(testing::TempDir()) /
                                 (std::string("corvane_firmware_") +
                                  testing::UnitTest::GetInstance()->current_test_info()->name());
  std::filesystem::path path = folder / "emulex.grp";
  Status driverStatus = statusSuccess;
  Status answered = 77;
  uint32_t size = 0;
  uint32_t zero = 1;
  uint64_t address = 0;
  ImageBytes seen;
};

TEST_F(CorvaneAPIFirmware, HandsOverTheWholeImageInMemory) {
  const ImageBytes image{'G', 'R', 'P', 0, 1, 2, 0xFF};
  writeImage(image);
  EXPECT_EQ(transfer(), 0);
  EXPECT_THAT(userClient.order(), ElementsAre("open 7", "call 3", "release"));
  EXPECT_EQ(userClient.calls()[0].input.size(), 16U);
  EXPECT_EQ(userClient.calls()[0].outputSize, 16U);
  EXPECT_EQ(size, 7U);
  EXPECT_EQ(zero, 0U);
  EXPECT_NE(address, 0U);
  ImageBytes expected = image;
  expected.push_back(0);
  EXPECT_EQ(seen, expected);
  EXPECT_EQ(answered, statusSuccess);
}

TEST_F(CorvaneAPIFirmware, PrintsEachStepAndTheImageAsText) {
  writeImage({'G', 'R', 'P', 0, 1, 2, 0xFF});
  transfer();
  EXPECT_EQ(log.outputText(),
            "open ELX FW file success\n"
            "elx fw size 7\n"
            "buffer address GRP\n"
            "TestUpdateELXFWUserClient: structureOutputSize = 16(Byte)\n"
            "FWSize=7, buffer address=GRP\n");
}

TEST_F(CorvaneAPIFirmware, EmptyImageIsHandedOverAllTheSame) {
  writeImage({});
  EXPECT_EQ(transfer(), 0);
  EXPECT_EQ(size, 0U);
  EXPECT_EQ(seen, ImageBytes{0});
}

TEST_F(CorvaneAPIFirmware, RefusalByTheDriverIsNotTheResult) {
  writeImage({1});
  driverStatus = statusFailure;
  EXPECT_EQ(transfer(), 0);
  EXPECT_EQ(answered, statusFailure);
}

TEST_F(CorvaneAPIFirmware, RefusedOpeningIsNotTheResultEither) {
  writeImage({1});
  userClient.openStatus = statusFailure;
  EXPECT_EQ(transfer(), 0);
  EXPECT_NE(answered, statusSuccess);
  EXPECT_NE(answered, 77);
}

TEST_F(CorvaneAPIFirmware, WithoutMemoryNothingIsHandedOver) {
  writeImage({1, 2, 3});
  imageMemoryIsUsedUp = true;
  const int64_t result = transfer();
  imageMemoryIsUsedUp = false;
  EXPECT_EQ(result, 1);
  EXPECT_EQ(log.errorText(), "Memory error!");
  EXPECT_EQ(log.outputText(), "open ELX FW file success\nelx fw size 3\n");
  EXPECT_THAT(userClient.order(), IsEmpty());
  EXPECT_EQ(answered, 77);
}

TEST_F(CorvaneAPIFirmware, MissingFileIsTriedThreeTimesASecondApart) {
  int64_t result = -1;
  dispatch.asyncGlobal(QueuePriority::Default, [&] { result = transfer(); });
  dispatch.runUntilIdle();
  EXPECT_EQ(log.outputText(), "");
  dispatch.advance(1s);
  EXPECT_EQ(log.outputText(), "open ELX FW file fail\n");
  dispatch.advance(1999ms);
  EXPECT_EQ(result, -1);
  dispatch.advance(1ms);
  EXPECT_EQ(result, 1);
  EXPECT_EQ(log.outputText(),
            "open ELX FW file fail\nopen ELX FW file fail\nopen ELX FW file fail\n");
  EXPECT_THAT(userClient.order(), IsEmpty());
  EXPECT_EQ(answered, 77);
}

TEST_F(CorvaneAPIFirmware, FileThatAppearsInTheMeantimeIsTaken) {
  int64_t result = -1;
  dispatch.asyncGlobal(QueuePriority::Default, [&] { result = transfer(); });
  dispatch.runUntilIdle();
  writeImage({5});
  dispatch.advance(1s);
  EXPECT_EQ(result, 0);
  EXPECT_EQ(size, 1U);
  EXPECT_TRUE(log.outputText().starts_with("open ELX FW file fail\nopen ELX FW file success\n"));
}

TEST_F(CorvaneAPIFirmware, LinkIsNotFollowed) {
  const auto target = folder / "elsewhere";
  writeImage({1});
  std::filesystem::rename(path, target);
  std::filesystem::create_symlink(target, path);
  int64_t result = -1;
  dispatch.asyncGlobal(QueuePriority::Default, [&] { result = transfer(); });
  dispatch.advance(10s);
  EXPECT_EQ(result, 1);
  EXPECT_THAT(userClient.order(), IsEmpty());
}

TEST_F(CorvaneAPIFirmware, FolderInPlaceOfTheImageIsNotOpened) {
  std::filesystem::create_directory(path);
  int64_t result = -1;
  dispatch.asyncGlobal(QueuePriority::Default, [&] { result = transfer(); });
  dispatch.advance(10s);
  EXPECT_EQ(result, 1);
}

}  // namespace
