#include "launch/Launch.h"

#include <cstdlib>
#include <nlohmann/json.hpp>

#include "TemporaryFolder.h"
#include "fakes/FakePrompts.h"
#include "platform/bench/file/BenchDemo.h"
#include "platform/bench/file/BenchFile.h"
#include "platform/posix/PlainMainQueue.h"

using namespace corvane;
using testing::HasSubstr;

namespace {

/// Sets an environment variable for as long as it lives.
class ScopedVariable {
 public:
  ScopedVariable(const char* name, const std::string& value) : name_(name) {
    if (const char* const old = std::getenv(name)) old_ = old;
    setenv(name, value.c_str(), 1);
  }
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;
  ~ScopedVariable() {
    if (old_) {
      setenv(name_, old_->c_str(), 1);
    } else {
      unsetenv(name_);
    }
  }

 private:
  const char* name_;
  std::optional<std::string> old_;
};

class LaunchTest : public testing::Test {
 protected:
  std::string path(const std::string& name) const { return (folder_ / name).string(); }

  std::string makeBench(const std::string& name, const std::string& version) const {
    BenchState bench = demoBench();
    bench.application.version = version;
    BenchFile(path(name)).create(bench);
    return path(name);
  }

  std::string versionOn(const LaunchOptions& options) {
    const Launch launch(options, queue_, prompts_);
    const auto version = launch.platform().bundles.mainInfoValue("CFBundleShortVersionString");
    return version && version->text() ? *version->text() : "";
  }

  LaunchFailure failureOf(const LaunchOptions& options) {
    try {
      const Launch launch(options, queue_, prompts_);
    } catch (const LaunchFailure& failure) {
      return failure;
    }
    ADD_FAILURE() << "the launch succeeded";
    return {LaunchExitStatus::Failed, "", "", ""};
  }

  PlainMainQueue queue_;
  FakePrompts prompts_;
  const TemporaryFolder temporary_;
  const std::filesystem::path folder_ = temporary_.path();
  const ScopedVariable noBench_{"CORVANE_BENCH", ""};
};

TEST_F(LaunchTest, RunsOnTheBenchThatIsNamed) {
  LaunchOptions options;
  options.bench = makeBench("named.json", "1.2.3.4");
  EXPECT_EQ(versionOn(options), "1.2.3.4");
  const Launch launch(options, queue_, prompts_);
  EXPECT_EQ(launch.source(), options.bench);
  EXPECT_FALSE(launch.isReadOnly());
}

TEST_F(LaunchTest, TheEnvironmentNamesABenchUnlessAnOptionDoes) {
  const ScopedVariable named("CORVANE_BENCH", makeBench("environment.json", "2.0.0.0"));
  LaunchOptions options;
  EXPECT_EQ(versionOn(options), "2.0.0.0");
  options.bench = makeBench("option.json", "3.0.0.0");
  EXPECT_EQ(versionOn(options), "3.0.0.0");
}

#ifndef __APPLE__
TEST_F(LaunchTest, WithoutAnyNameTheUsersOwnBenchIsMadeOnceAndKept) {
  const ScopedVariable data("XDG_DATA_HOME", path("data"));
  const std::string own = path("data/corvane/bench.json");
  EXPECT_EQ(versionOn({}), demoBench().application.version);
  ASSERT_TRUE(std::filesystem::exists(own));
  BenchFile(own).update([](BenchState& bench) { bench.application.version = "5.5.5.5"; });
  EXPECT_EQ(versionOn({}), "5.5.5.5");
}

TEST_F(LaunchTest, WithoutADataFolderTheUsersBenchIsInTheHomeFolder) {
  const ScopedVariable data("XDG_DATA_HOME", "relative/is/ignored");
  const ScopedVariable home("HOME", path("home"));
  versionOn({});
  EXPECT_TRUE(std::filesystem::exists(path("home/.local/share/corvane/bench.json")));
}

TEST_F(LaunchTest, AUsersBenchThatCannotBeMadeIsAFailure) {
  std::ofstream(path("file")) << "in the way";
  const ScopedVariable data("XDG_DATA_HOME", path("file"));
  const LaunchFailure failure = failureOf({});
  EXPECT_EQ(failure.status(), LaunchExitStatus::Failed);
  EXPECT_THAT(failure.hint(), HasSubstr("--bench"));
}
#endif

TEST_F(LaunchTest, AMissingBenchIsNotFound) {
  LaunchOptions options;
  options.bench = path("missing.json");
  const LaunchFailure failure = failureOf(options);
  EXPECT_EQ(failure.status(), LaunchExitStatus::NotFound);
  EXPECT_EQ(failure.subject(), options.bench);
  EXPECT_THAT(failure.hint(), HasSubstr("corvane-bench new"));
}

TEST_F(LaunchTest, ABenchThatDoesNotFitIsRefusedAndLeftAlone) {
  LaunchOptions options;
  options.bench = path("broken.json");
  std::ofstream(options.bench) << "{\n\"clockRate\": \"fast\"\n}";
  const LaunchFailure failure = failureOf(options);
  EXPECT_EQ(failure.status(), LaunchExitStatus::Failed);
  EXPECT_EQ(failure.reason(), "line 1: lacks the field \"adapters\"");
  std::ifstream file(options.bench);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "{\n\"clockRate\": \"fast\"\n}");
}

TEST_F(LaunchTest, ABenchAndADumpContradictEachOther) {
  LaunchOptions options;
  options.bench = makeBench("bench.json", "1.0.0.0");
  options.dump = path("dump.txt");
  EXPECT_EQ(failureOf(options).status(), LaunchExitStatus::WrongOptions);
}

TEST_F(LaunchTest, ADumpGoesBeforeTheEnvironmentsBench) {
  const ScopedVariable named("CORVANE_BENCH", makeBench("environment.json", "2.0.0.0"));
  LaunchOptions options;
  options.dump = path("missing.txt");
  EXPECT_EQ(failureOf(options).status(), LaunchExitStatus::NotFound);
  std::ofstream(path("garbage.txt")) << "no dump";
  options.dump = path("garbage.txt");
  EXPECT_EQ(failureOf(options).status(), LaunchExitStatus::Failed);
}

TEST_F(LaunchTest, ADumpIsReadOnly) {
  LaunchOptions options;
  options.dump = path("dump.txt");
  std::ofstream(options.dump) << "+-o Root  <class IORegistryEntry, id 0x100000100, retain 15>\n";
  const Launch launch(options, queue_, prompts_);
  EXPECT_TRUE(launch.isReadOnly());
  EXPECT_NE(launch.platform().shell.run("true"), 0);
}

TEST_F(LaunchTest, TheProgramThatShowsADumpTellsOfItself) {
  LaunchOptions options;
  options.dump = path("dump.txt");
  std::ofstream(options.dump) << "+-o Root  <class IORegistryEntry, id 0x100000100, retain 15>\n";
  EXPECT_NE(versionOn(options), "");
  const Launch launch(options, queue_, prompts_);
  EXPECT_EQ(launch.platform().bundles.mainInfoValue("NSHumanReadableCopyright"),
            PropertyValue("Copyright © 2026 Velmar. All rights reserved."));
}

TEST_F(LaunchTest, TheJournalRecordsWhatCrossesTheBoundary) {
  LaunchOptions options;
  options.bench = makeBench("bench.json", "1.0.0.0");
  options.journal = path("journal.jsonl");
  const Launch launch(options, queue_, prompts_);
  launch.platform().shell.run("exit 0");
  std::ifstream file(options.journal);
  const auto line = nlohmann::json::parse(file);
  EXPECT_EQ(line["call"], "shell");
  EXPECT_EQ(line["line"], "exit 0");
}

TEST_F(LaunchTest, AJournalThatCannotBeOpenedIsAFailure) {
  LaunchOptions options;
  options.bench = makeBench("bench.json", "1.0.0.0");
  options.journal = path("no/such/folder/journal.jsonl");
  const LaunchFailure failure = failureOf(options);
  EXPECT_EQ(failure.status(), LaunchExitStatus::Failed);
  EXPECT_EQ(failure.subject(), options.journal);
}

TEST_F(LaunchTest, AnUpdateFolderWithoutASchemeIsBesideTheBenchOrAmongTheSamples) {
  LaunchOptions options;
  options.bench = makeBench("bench.json", "1.0.0.0");
  const auto address = [&] {
    const Launch launch(options, queue_, prompts_);
    const auto engine = launch.platform().bundles.resourcePropertyList("UpdateEngine", "plist");
    return propertyText(*engine, "plistURL");
  };
  EXPECT_EQ(address(), "file://" CORVANE_SOURCE_DIR "/bench/update");
  std::filesystem::create_directory(path("update"));
  EXPECT_EQ(address(), "file://" + path("update"));
  BenchFile(options.bench).set("/application/plistURL", "http://server/x y/");
  EXPECT_EQ(address(), "http://server/x y/");
}

}  // namespace
