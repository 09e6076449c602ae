#include "OnlineUpdate/UpdateDownload.h"

#include <sys/stat.h>

#include <cstdlib>

#include "TemporaryFolder.h"
#include "fakes/FakePlatform.h"
#include "fakes/LoopbackServer.h"
#include "fakes/ManualDispatch.h"
#include "online_update/CatalogueText.h"
#include "platform/posix/CurlTransfer.h"

using namespace corvane;
using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

/// Downloads over the real transfer library from a server on the loopback address.
class UpdateDownloadTest : public testing::Test {
 protected:
  Platform platform() {
    const Platform fake = fake_.platform();
    return {fake.registry,      fake.userClient,    fake.diskArbitration,
            fake.runLoops,      fake.dispatch,      fake.notifications,
            fake.shell,         fake.scripts,       fake.bundles,
            fake.systemVersion, fake.authorization, *transfer_,
            fake.log,           fake.prompts,       fake.paths};
  }

  /// How long a server may be silent.
  static std::unique_ptr<CurlTransfer> transferThatWaits(std::chrono::seconds stallLimit) {
    return std::make_unique<CurlTransfer>(CurlTransferOptions{1min, stallLimit, false});
  }

  CatalogueReading fetch(const std::string& path) {
    return fetchCatalogue(platform(), server_.url(path), {});
  }

  UpdateDownload download(const std::string& path) {
    return downloadUpdateFile(platform(), server_.url(path), path_, {});
  }

  std::string content() const {
    std::ifstream file(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  std::vector<std::string> filesInFolder() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
      names.push_back(entry.path().filename().string());
    }
    return names;
  }

  LoopbackServer server_;
  ManualDispatch dispatch_;
  FakePlatform fake_{dispatch_};
  std::unique_ptr<CurlTransfer> transfer_ = transferThatWaits(1min);
  const TemporaryFolder temporary_;
  const std::filesystem::path folder_ = temporary_.path();
  std::string path_ = temporary_.file("package.pkg");
};

TEST_F(UpdateDownloadTest, BringsTheFileWhole) {
  const std::string body(1'000'000, 'p');
  server_.serve("/package", body);
  const UpdateDownload outcome = download("/package");
  EXPECT_EQ(outcome.result, 0);
  EXPECT_EQ(outcome.problem, "");
  EXPECT_EQ(content(), body);
  EXPECT_THAT(filesInFolder(), testing::ElementsAre("package.pkg"));
}

TEST_F(UpdateDownloadTest, FollowsARedirect) {
  server_.redirect("/old", "/new");
  server_.serve("/new", "moved");
  EXPECT_EQ(download("/old").result, 0);
  EXPECT_EQ(content(), "moved");
}

TEST_F(UpdateDownloadTest, ATransferThatFailsLeavesTheOldFileAndNothingElse) {
  transfer_ = transferThatWaits(1s);
  server_.fail("/missing", 404);
  server_.cut("/cut", "first half", 20);
  server_.stall("/stalled", "first bytes");
  server_.redirect("/trap", "file:///etc/passwd");
  for (const char* const path : {"/missing", "/cut", "/stalled", "/trap", "/unknown"}) {
    std::ofstream(path_) << "old";
    const UpdateDownload outcome = download(path);
    EXPECT_EQ(outcome.result, 1) << path;
    EXPECT_NE(outcome.problem, "") << path;
    EXPECT_EQ(content(), "old") << path;
    EXPECT_THAT(filesInFolder(), testing::ElementsAre("package.pkg")) << path;
  }
}

TEST_F(UpdateDownloadTest, AnExistingFileIsReplaced) {
  std::ofstream(path_) << "a much longer old content";
  server_.serve("/package", "new");
  EXPECT_EQ(download("/package").result, 0);
  EXPECT_EQ(content(), "new");
}

TEST_F(UpdateDownloadTest, ALinkAtThePlaceIsReplacedNotFollowed) {
  const auto target = folder_ / "target";
  std::ofstream(target) << "untouched";
  std::filesystem::create_symlink(target, path_);
  server_.serve("/package", "new");
  EXPECT_EQ(download("/package").result, 0);
  EXPECT_FALSE(std::filesystem::is_symlink(path_));
  std::ifstream file(target);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "untouched");
}

TEST_F(UpdateDownloadTest, AFolderAtThePlaceIsAFailure) {
  std::filesystem::create_directory(path_);
  server_.serve("/package", "new");
  const UpdateDownload outcome = download("/package");
  EXPECT_EQ(outcome.result, 1);
  EXPECT_NE(outcome.problem, "");
  EXPECT_TRUE(std::filesystem::is_directory(path_));
}

TEST_F(UpdateDownloadTest, AFileThatCannotBeOpenedIsNoticedByTheTransfer) {
  path_ = (folder_ / "no such folder" / "package.pkg").string();
  server_.serve("/package", "new");
  EXPECT_EQ(download("/package").result, 1);
  EXPECT_THAT(server_.requests(), testing::ElementsAre("/package"));
}

TEST_F(UpdateDownloadTest, ALibraryThatCannotBeInitialisedIsToldApart) {
  fake_.transfer.failCreate = true;
  EXPECT_EQ(downloadUpdateFile(fake_.platform(), "http://x/y", path_, {}).result, 2);
  EXPECT_THAT(filesInFolder(), IsEmpty());
}

TEST_F(UpdateDownloadTest, TheProgressReachesTheTotal) {
  uint64_t lastReceived = 0;
  uint64_t lastTotal = 0;
  server_.serve("/package", std::string(500'000, 'x'));
  downloadUpdateFile(platform(), server_.url("/package"), path_,
                     [&](uint64_t received, uint64_t total) {
                       lastReceived = received;
                       lastTotal = total;
                       return true;
                     });
  EXPECT_EQ(lastReceived, 500'000u);
  EXPECT_EQ(lastTotal, 500'000u);
}

TEST_F(UpdateDownloadTest, WriteDataAnswersWhatTheFileWriteAnswers) {
  std::FILE* const file = std::fopen(path_.c_str(), "wb");
  EXPECT_EQ(write_data("abcdef", 2, 3, file), 3u);
  std::fclose(file);
  EXPECT_EQ(content(), "abcdef");
  std::FILE* const readOnly = std::fopen(path_.c_str(), "rb");
  EXPECT_EQ(write_data("abcdef", 2, 3, readOnly), 0u);
  std::fclose(readOnly);
  EXPECT_EQ(write_data("abcdef", 2, 3, nullptr), 0u);
}

TEST_F(UpdateDownloadTest, FetchesACatalogue) {
  server_.serve("/CorvaneOnlineInfo.plist", catalogueXml({{"Corvane_SW", "2.0.0.0", "a", "", ""}}));
  const auto reading = fetch("/CorvaneOnlineInfo.plist");
  ASSERT_TRUE(reading.rules);
  EXPECT_EQ(reading.rules->front().Version, "2.0.0.0");
}

TEST_F(UpdateDownloadTest, ACatalogueThatCannotBeFetchedSaysWhy) {
  transfer_ = transferThatWaits(1s);
  server_.fail("/missing", 404);
  server_.serve("/page", "<html></html>");
  server_.serve("/large", std::string(100'000'000, ' '));
  server_.serveEndlessly("/endless");
  server_.cut("/cut", "<plist>", 100);
  server_.stall("/stalled", "<plist>");
  for (const char* const path : {"/missing", "/page", "/large", "/endless", "/cut", "/stalled"}) {
    const auto reading = fetch(path);
    EXPECT_FALSE(reading.rules) << path;
    EXPECT_NE(reading.problem, "") << path;
  }
}

TEST_F(UpdateDownloadTest, ACatalogueIsWaitedForWithinBoundsWhileItArrives) {
  fake_.transfer.answers["http://server/list"] = {0, catalogueXml({}), ""};
  int served = 0;
  const auto serve = [&served](uint64_t, uint64_t) {
    ++served;
    return true;
  };
  EXPECT_TRUE(fetchCatalogue(fake_.platform(), "http://server/list", serve).rules);
  EXPECT_GT(served, 0);
  EXPECT_EQ(fake_.transfer.timeLimit, catalogueTimeLimit);
  EXPECT_EQ(fake_.transfer.maximumSize, catalogueSizeLimit);
}

TEST_F(UpdateDownloadTest, APackageMayTakeAsLongAsItArrives) {
  downloadUpdateFile(fake_.platform(), "http://server/package", path_, {});
  EXPECT_EQ(fake_.transfer.timeLimit, 0s);
}

TEST_F(UpdateDownloadTest, PlainFileNamesAreUsed) {
  for (const char* const name :
       {"CORVANE_Utility.dmg", "fw-16G_2.0.1+b3.pkg", ".hidden", "a", "emulex.grp.pkg"}) {
    EXPECT_EQ(updateFileNameProblem(name, fake_.paths), "") << name;
  }
}

TEST_F(UpdateDownloadTest, AnythingButANameIsRefused) {
  const std::vector<std::string> names = {"",
                                          "/etc/passwd",
                                          "../up",
                                          "a/b",
                                          "..",
                                          ".",
                                          "a..b",
                                          "-rf",
                                          "a b",
                                          "a;b",
                                          "$(x)",
                                          "`x`",
                                          "a&b",
                                          "a|b",
                                          "a>b",
                                          "a'b",
                                          "a\"b",
                                          "a\\b",
                                          "a\nb",
                                          "a\x01",
                                          "a*",
                                          "a?",
                                          "~root",
                                          "ä.pkg",
                                          "emulex.grp",
                                          "Emulex.GRP",
                                          "corvaneOutput.txt",
                                          "CORVANEOUTPUT.TXT",
                                          "a%2fb",
                                          std::string("a\0b", 3),
                                          std::string(201, 'a')};
  for (const std::string& name : names) {
    EXPECT_NE(updateFileNameProblem(name, fake_.paths), "") << name;
  }
}

}  // namespace
