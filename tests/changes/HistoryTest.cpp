#include "changes/History.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

#include <algorithm>
#include <thread>

#include "TemporaryFolder.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class HistoryTest : public testing::Test {
 protected:
  static HistoryEntry entry(const std::string& to) {
    return {"2026-11-21T02:14:07Z",
            "speed",
            "B - 2",
            "20:00:00:10:9B:00:00:01",
            1,
            "auto",
            to,
            "taken"};
  }

  void write(const std::string& text) const {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path, std::ios::binary | std::ios::app) << text;
  }

  std::string content() const {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  TemporaryFolder folder;
  std::string path = (folder.path() / "records" / "history").string();
  History history{path};
};

TEST_F(HistoryTest, WithoutAFileThereAreNoChanges) {
  EXPECT_THAT(history.entries(), IsEmpty());
}

TEST_F(HistoryTest, IsKeptInTheUsersHome) {
  Paths paths;
  paths.home = (folder.path() / "home").string();
  EXPECT_TRUE(History(paths).append(entry("4")));
  EXPECT_TRUE(std::filesystem::is_regular_file(
      folder.path() / "home/Library/Application Support/Corvane Utility/history"));
}

TEST_F(HistoryTest, AChangeIsALineOfItsOwn) {
  ASSERT_TRUE(history.append(entry("4")));
  EXPECT_EQ(content(),
            R"({"time":"2026-11-21T02:14:07Z","what":"speed","label":"B - 2",)"
            R"("WWN":"20:00:00:10:9B:00:00:01","port":1,"from":"auto","to":"4","outcome":"taken"})"
            "\n");
}

TEST_F(HistoryTest, ChangesComeBackOldestFirst) {
  HistoryEntry bare;
  bare.time = "2026-11-21T02:15:00Z";
  bare.what = "mount";
  history.append(entry("4"));
  history.append(bare);
  EXPECT_THAT(history.entries(), ElementsAre(entry("4"), bare));
}

TEST_F(HistoryTest, TheTimeIsFilledIn) {
  HistoryEntry timeless = entry("4");
  timeless.time.clear();
  history.append(timeless);
  ASSERT_THAT(history.entries(), SizeIs(1));
  EXPECT_THAT(history.entries().front().time,
              testing::MatchesRegex("[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}Z"));
}

TEST_F(HistoryTest, AnyTextIsOneLineAndBounded) {
  HistoryEntry odd = entry("two\nlines\xFF");
  odd.outcome = std::string(History::textLimit * 3, 'x');
  ASSERT_TRUE(history.append(odd));
  ASSERT_THAT(history.entries(), SizeIs(1));
  EXPECT_EQ(history.entries().front().to, "two\nlines\xEF\xBF\xBD");
  EXPECT_EQ(history.entries().front().outcome.size(), History::textLimit);
}

TEST_F(HistoryTest, WhatAKilledProgramLeftCostsThatLineAlone) {
  history.append(entry("4"));
  write(R"({"time":"2026-11-21T02:14:08Z","wh)");
  EXPECT_THAT(history.entries(), ElementsAre(entry("4")));
  history.append(entry("8"));
  EXPECT_THAT(history.entries(), ElementsAre(entry("4"), entry("8")));
}

TEST_F(HistoryTest, WhatIsNoChangeIsPassedOver) {
  write("[]\nnull\n7\n{}\n{\"time\":1,\"what\":\"speed\"}\n\n\xFF\n");
  write(R"({"time":"t","what":"w","port":"one","from":7,"outcome":{}})"
        "\n");
  HistoryEntry odd;
  odd.time = "t";
  odd.what = "w";
  EXPECT_THAT(history.entries(), ElementsAre(odd));
}

TEST_F(HistoryTest, IsBoundedAndKeepsTheNewest) {
  constexpr size_t limit = 2000;
  const History small(path, limit);
  for (int number = 0; number < 100; ++number) {
    ASSERT_TRUE(small.append(entry(std::to_string(number))));
    ASSERT_LE(std::filesystem::file_size(path), limit);
    ASSERT_EQ(small.entries().back().to, std::to_string(number));
  }
  const auto kept = small.entries();
  EXPECT_GT(kept.size(), 3U);
  for (size_t index = 0; index < kept.size(); ++index) {
    EXPECT_EQ(kept[index].to, std::to_string(100 - kept.size() + index));
  }
  EXPECT_FALSE(std::filesystem::exists(path + ".new"));
}

TEST_F(HistoryTest, AFileOverItsBoundWithoutALineEndIsGivenUp) {
  write(std::string(3000, 'x'));
  const History small(path, 1000);
  EXPECT_TRUE(small.append(entry("4")));
  EXPECT_THAT(small.entries(), ElementsAre(entry("4")));
}

TEST_F(HistoryTest, SeveralProgramsLoseNothing) {
  constexpr size_t limit = 100000;
  std::vector<std::thread> programs;
  for (int program = 0; program < 4; ++program) {
    programs.emplace_back([this, program] {
      const History own(path, limit);
      for (int number = 0; number < 25; ++number) {
        EXPECT_TRUE(own.append(entry(std::to_string(program * 100 + number))));
      }
    });
  }
  for (auto& program : programs) program.join();
  std::vector<std::string> values;
  for (const auto& change : history.entries()) values.push_back(*change.to);
  EXPECT_THAT(values, SizeIs(100));
  std::sort(values.begin(), values.end());
  EXPECT_EQ(std::unique(values.begin(), values.end()), values.end());
}

TEST_F(HistoryTest, SeveralProgramsShortenItWithoutTearingALine) {
  constexpr size_t limit = 2000;
  std::vector<std::thread> programs;
  for (int program = 0; program < 4; ++program) {
    programs.emplace_back([this] {
      const History own(path, limit);
      for (int number = 0; number < 25; ++number) EXPECT_TRUE(own.append(entry("4")));
    });
  }
  for (auto& program : programs) program.join();
  const std::string text = content();
  EXPECT_EQ(static_cast<size_t>(std::count(text.begin(), text.end(), '\n')),
            history.entries().size());
  EXPECT_LE(text.size(), limit);
}

TEST_F(HistoryTest, ALinkInItsPlaceIsNotFollowed) {
  std::filesystem::create_directories(std::filesystem::path(path).parent_path());
  std::filesystem::create_symlink(folder.path() / "elsewhere", path);
  EXPECT_FALSE(history.append(entry("4")));
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "elsewhere"));
}

TEST_F(HistoryTest, APipeInItsPlaceHoldsNobodyUp) {
  std::filesystem::create_directories(std::filesystem::path(path).parent_path());
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  EXPECT_THAT(history.entries(), IsEmpty());
}

TEST_F(HistoryTest, WhereNothingCanBeWrittenItSaysSo) {
  std::ofstream(folder.path() / "records") << "a file in the folder's place";
  EXPECT_FALSE(history.append(entry("4")));
}

TEST_F(HistoryTest, IsForItsOwnerAlone) {
  history.append(entry("4"));
  EXPECT_EQ(std::filesystem::status(path).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

}  // namespace
}  // namespace corvane
