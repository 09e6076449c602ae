#include "cli/Verbs.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>
#include <sstream>

#include "CORVANE2Archive/ArchiveFixtures.h"
#include "cli/answers/CommandOutput.h"

namespace corvane::archivetest {
namespace {

using nlohmann::ordered_json;
using testing::HasSubstr;
using testing::StartsWith;

/// What a run of `corvane archive ...` left behind.
struct CommandRun {
  int status = -1;
  std::string out;
  std::string err;

  ordered_json json() const { return ordered_json::parse(out); }
};

class ArchiveCommandTest : public testing::Test {
 protected:
  CommandRun run(std::vector<std::string> arguments, bool terminal = false) {
    std::istringstream in;
    std::ostringstream answer;
    std::ostringstream errors;
    CommandContext context{
        .program = "corvane", .in = in, .out = answer, .err = errors, .errorIsTerminal = terminal};
    CLI::App app{"test", "corvane"};
    addArchiveCommand(app, context);
    arguments.insert(arguments.begin(), "archive");
    const int status = runCommandLine(app, context, arguments);
    return {status, answer.str(), errors.str()};
  }

  std::string package(const std::string& index) {
    writeFile(path, closedPackage(index));
    return path;
  }

  std::string writeManifest(const ordered_json& document) {
    const auto manifest = folder.file("manifest.json");
    writeFile(manifest, document.dump());
    return manifest;
  }

  /// The manifest of two-files.pkg.
  ordered_json goldenManifest() {
    writeFile(folder.file("image.bin"), goldenImage());
    writeFile(folder.file("notes.txt"), "ok");
    return ordered_json::parse(R"({"id":"CORVANE2","version":"1.0","files":[
        {"id":"emulex.grp","version":"11.2.156.27","description":"Controller firmware",
         "name":"emulex.grp","path":"image.bin"},
        {"id":"emulex","version":"1","description":"Notes","name":"notes.txt",
         "path":"notes.txt"}]})");
  }

  std::vector<std::string> folderContent() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.file(""))) {
      names.push_back(entry.path().filename().string());
    }
    return names;
  }

  TemporaryFolder folder;
  std::string path = folder.file("a.pkg");
  std::string out = folder.file("out.bin");
  std::string good = dataPath("two-files.pkg");
};

TEST_F(ArchiveCommandTest, ListAsJson) {
  const auto result = run({"list", good, "--json"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.json(), ordered_json::parse(R"({"status":0,"id":"CORVANE2","version":"1.0",
      "fileCount":2,"files":[
      {"id":"emulex.grp","version":"11.2.156.27","description":"Controller firmware",
       "name":"emulex.grp","size":200},
      {"id":"emulex","version":"1","description":"Notes","name":"notes.txt","size":2}]})"));
  EXPECT_EQ(result.err, "");
}

TEST_F(ArchiveCommandTest, ListAsText) {
  const auto result = run({"list", good});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out,
            "id:        CORVANE2\n"
            "version:   1.0\n"
            "fileCount: 2\n"
            "files:\n"
            "  id          version      description          name        size\n"
            "  emulex.grp  11.2.156.27  Controller firmware  emulex.grp  200\n"
            "  emulex      1            Notes                notes.txt   2\n");
}

TEST_F(ArchiveCommandTest, ListOfAPackageWithoutFiles) {
  const auto result = run({"list", dataPath("no-files.pkg"), "--json"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.json().at("files"), ordered_json::array());
}

TEST_F(ArchiveCommandTest, ListOfAnIncompleteFileIsItsStatus) {
  auto block = fileBlock("a", "1", "QQ==\n");
  block.erase(block.find("<file_name>"), 1);
  const auto result = run({"list", package(indexOf("1", block)), "--json"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.json().at("status"), 17);
}

TEST_F(ArchiveCommandTest, VersionAsTextIsTheVersionAlone) {
  const auto result = run({"version", good, "emulex.grp"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "11.2.156.27\n");
}

TEST_F(ArchiveCommandTest, VersionAsJson) {
  const auto result = run({"version", good, "emulex", "--json"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.json(), ordered_json::parse(R"({"status":0,"version":"1"})"));
}

TEST_F(ArchiveCommandTest, FailureNamesTheStatusInHexadecimalAndInWords) {
  const auto result = run({"version", good, "absent"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(result.err, StartsWith("corvane: " + good + ": status 0x11, the package holds no "));
  EXPECT_THAT(result.err, HasSubstr("\n\"corvane archive list FILE\" shows the ids"));
}

TEST_F(ArchiveCommandTest, FailureAsJsonHasTheStatusAndTheError) {
  for (const auto& arguments : std::vector<std::vector<std::string>>{
           {"list"}, {"verify"}, {"version", "emulex"}, {"extract", "emulex", out}}) {
    auto line = arguments;
    line.insert(line.begin() + 1, dataPath("after-add.pkg"));
    line.push_back("--json");
    const auto result = run(line);
    EXPECT_EQ(result.status, 1) << arguments.front();
    EXPECT_EQ(result.json().at("status"), 19);
    EXPECT_THAT(result.json().at("error").at("why").get<std::string>(), HasSubstr("0x13"));
    EXPECT_EQ(result.json().at("error").at("what"), dataPath("after-add.pkg"));
    EXPECT_EQ(result.err, "");
  }
}

TEST_F(ArchiveCommandTest, MissingPackageIsNotFound) {
  const auto result = run({"list", path, "--json"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.json().at("status"), 257);
  EXPECT_EQ(run({"version", path, "x"}).status, 3);
  EXPECT_EQ(run({"extract", path, "x", out}).status, 3);
  EXPECT_EQ(run({"verify", path}).status, 3);
}

TEST_F(ArchiveCommandTest, FolderAsPackageCannotBeOpened) {
  const auto result = run({"verify", folder.file(""), "--json"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.json().at("status"), 257);
}

TEST_F(ArchiveCommandTest, MissingArgumentsAreAWrongCommandLine) {
  for (const auto& arguments : std::vector<std::vector<std::string>>{
           {}, {"list"}, {"version", good}, {"extract", good, "x"}, {"create", path}, {"open"}}) {
    EXPECT_EQ(run(arguments).status, 2);
  }
}

TEST_F(ArchiveCommandTest, ExtractWritesTheFileAndSaysNothing) {
  const auto result = run({"extract", good, "emulex.grp", out});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out + result.err, "");
  EXPECT_EQ(readFile(out), goldenImage());
  EXPECT_EQ(run({"extract", good, "emulex.grp", out, "--json"}).json(),
            ordered_json::parse(R"({"status":0})"));
}

TEST_F(ArchiveCommandTest, ExtractThatCannotCreateNamesTheOutput) {
  const auto result = run({"extract", good, "emulex", folder.file("no/out"), "--json"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.json().at("status"), 256);
  EXPECT_EQ(result.json().at("error").at("what"), folder.file("no/out"));
}

TEST_F(ArchiveCommandTest, ExtractToAFullDiskIsAFailure) {
  const auto result = run({"extract", good, "emulex", "/dev/full", "--json"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.json().at("status"), 260);
}

TEST_F(ArchiveCommandTest, ExtractNotesAFalseSize) {
  const auto result =
      run({"extract", package(indexOf("1", fileBlock("a", "9", "QUJD\n"))), "a", out, "--json"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.json().at("status"), 0);
  EXPECT_EQ(result.err, "corvane: the file \"a\" holds 3 bytes but claims 9\n");
  EXPECT_EQ(readFile(out), std::string("ABC\0\0\0\0\0\0", 9));
}

TEST_F(ArchiveCommandTest, ExtractDoesNotOverwriteThePackage) {
  std::filesystem::copy_file(good, path);
  EXPECT_EQ(run({"extract", path, "emulex", path}).status, 2);
  EXPECT_EQ(readFile(path), golden("two-files.pkg"));
}

TEST_F(ArchiveCommandTest, VerifyOfAGoodPackage) {
  EXPECT_EQ(run({"verify", good, "--json"}).json(),
            ordered_json::parse(R"({"status":0,"files":2,"bytes":202})"));
  const auto result = run({"verify", good});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "files: 2\nbytes: 202\n");
}

TEST_F(ArchiveCommandTest, VerifyReportsEachKindOfProblem) {
  const auto a = fileBlock("a", "3", "QUJD\n");
  const std::pair<std::string, std::string> cases[] = {
      {indexOf("1", fileBlock("a", "4", "QUJD\n")), "the file \"a\" holds 3 bytes but claims 4"},
      {indexOf("1", fileBlock("a", "-3", "QUJD\n")), "the file \"a\" holds 3 bytes but claims -3"},
      {indexOf("2", a + a), "two files have the id \"a\", of which only the first can be read"},
      {indexOf("3", a), "the package announces 3 files but holds 1"},
      {indexOf("0", a + a),
       "two files have the id \"a\", of which only the first can be read (and 1 more)"}};
  for (const auto& [index, problem] : cases) {
    const auto result = run({"verify", package(index), "--json"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.json().at("status"), 0);
    EXPECT_EQ(result.json().at("problem"), problem);
    EXPECT_EQ(result.json().at("error").at("why"), problem);
  }
}

TEST_F(ArchiveCommandTest, VerifyReportsAnIncompleteFileAsItsStatus) {
  const auto result = run({"verify", package(indexOf("1", "<archive_file>")), "--json"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.json().at("status"), 17);
}

TEST_F(ArchiveCommandTest, VerifyDoesNotRepeatAnEndlessId) {
  const auto result =
      run({"verify", package(indexOf("1", fileBlock(std::string(5000, 'x'), "4", "QUJD\n")))});
  EXPECT_EQ(result.status, 1);
  EXPECT_LT(result.err.size(), 400u);
}

TEST_F(ArchiveCommandTest, CreateBuildsThePackageOfTheManifest) {
  const auto result = run({"create", path, writeManifest(goldenManifest())});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out + result.err, "");
  EXPECT_EQ(readFile(path), golden("two-files.pkg"));
  EXPECT_THAT(folderContent(),
              testing::UnorderedElementsAre("a.pkg", "manifest.json", "image.bin", "notes.txt"));
  EXPECT_EQ(run({"create", path, folder.file("manifest.json"), "--json"}).json(),
            ordered_json::parse(R"({"status":0})"));
}

TEST_F(ArchiveCommandTest, CreateKeepsPermissionsAndLinks) {
  writeFile(path, "before");
  ASSERT_EQ(chmod(path.c_str(), 0640), 0);
  std::filesystem::create_symlink(path, folder.file("link"));
  ASSERT_EQ(run({"create", folder.file("link"), writeManifest(goldenManifest())}).status, 0);
  EXPECT_TRUE(std::filesystem::is_symlink(folder.file("link")));
  EXPECT_EQ(readFile(path), golden("two-files.pkg"));
  EXPECT_EQ(static_cast<int>(std::filesystem::status(path).permissions()), 0640);
}

TEST_F(ArchiveCommandTest, FailedCreateKeepsWhatWasThere) {
  writeFile(path, "a good package");
  auto manifest = goldenManifest();
  manifest["files"][1]["path"] = "missing.txt";
  const auto result = run({"create", path, writeManifest(manifest)});
  EXPECT_EQ(result.status, 3);
  EXPECT_THAT(result.err, HasSubstr("missing.txt: there is no such file"));
  EXPECT_EQ(readFile(path), "a good package");
  EXPECT_THAT(folderContent(),
              testing::UnorderedElementsAre("a.pkg", "manifest.json", "image.bin", "notes.txt"));
}

TEST_F(ArchiveCommandTest, CreateWhereNothingCanBeWritten) {
  const auto manifest = writeManifest(goldenManifest());
  auto result = run({"create", folder.file("no/such/a.pkg"), manifest, "--json"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.json().at("status"), 257);
  result = run({"create", "/dev/full", manifest, "--json"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.json().at("status"), 260);
  EXPECT_EQ(result.json().at("error").at("what"), "/dev/full");
  EXPECT_EQ(run({"create", folder.file(""), manifest}).status, 1);
}

TEST_F(ArchiveCommandTest, CreateDoesNotReplaceWhatGoesIntoThePackage) {
  const auto manifest = writeManifest(goldenManifest());
  const auto text = readFile(manifest);
  EXPECT_EQ(run({"create", manifest, manifest}).status, 2);
  EXPECT_EQ(readFile(manifest), text);
  EXPECT_EQ(run({"create", folder.file("image.bin"), manifest}).status, 2);
  EXPECT_EQ(readFile(folder.file("image.bin")), goldenImage());
}

TEST_F(ArchiveCommandTest, CreateRefusesAFolderAsMember) {
  auto manifest = goldenManifest();
  manifest["files"][0]["path"] = ".";
  const auto result = run({"create", path, writeManifest(manifest)});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr("is not a regular file"));
}

TEST_F(ArchiveCommandTest, MissingManifestIsNotFound) {
  EXPECT_EQ(run({"create", path, folder.file("none.json")}).status, 3);
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(ArchiveCommandTest, ManifestIsRefusedWithTheFieldThatIsWrong) {
  const auto changed = [&](const char* pointer, const ordered_json& value) {
    auto manifest = goldenManifest();
    manifest[ordered_json::json_pointer(pointer)] = value;
    return manifest.dump();
  };
  const std::pair<std::string, std::string> cases[] = {
      {"{", "is not a JSON document"},
      {"[]", "\"\" must be an object"},
      {R"({"id":"a","version":"b"})", "\"/files\" is missing"},
      {changed("/files", "x"), "\"/files\" must be a list"},
      {changed("/files/0", 3), "\"/files/0\" must be an object"},
      {changed("/files/1", ordered_json::object()), "\"/files/1/id\" is missing"},
      {changed("/files/1/Path", "x"), "\"/files/1/Path\" is not known"},
      {changed("/version", 1.5), "\"/version\" must be a text"},
      {changed("/files/0/version", "1<2"), "\"/files/0/version\" holds \"<\""},
      {changed("/id", std::string("a\0b", 3)), "\"/id\" holds"},
      {changed("/files/1/id", "emulex.grp"), "two files have the id \"emulex.grp\""}};
  for (const auto& [document, reason] : cases) {
    writeFile(folder.file("manifest.json"), document);
    const auto result = run({"create", path, folder.file("manifest.json")});
    EXPECT_EQ(result.status, 1) << document;
    EXPECT_THAT(result.err, HasSubstr(reason));
    EXPECT_THAT(result.err, HasSubstr("A manifest is {"));
    EXPECT_FALSE(std::filesystem::exists(path));
  }
}

TEST_F(ArchiveCommandTest, ProgressIsDrawnForALargePackageOnATerminal) {
  const std::string bytes(9'000'000, 'x');
  writeFile(folder.file("big.bin"), bytes);
  const auto manifest = writeManifest(ordered_json::parse(
      R"({"id":"a","version":"1","files":[{"id":"big","version":"1","description":"",
          "name":"big","path":"big.bin"}]})"));
  EXPECT_THAT(run({"create", path, manifest}, true).err, HasSubstr("writing ["));
  EXPECT_THAT(run({"extract", path, "big", out}, true).err, HasSubstr("reading ["));
  EXPECT_EQ(readFile(out), bytes);
  EXPECT_EQ(run({"extract", path, "big", out}, false).err, "");
  EXPECT_THAT(run({"verify", path}, true).err, HasSubstr("verifying ["));
}

TEST_F(ArchiveCommandTest, NoProgressIsDrawnForASmallPackage) {
  EXPECT_EQ(run({"list", good}, true).err, "");
  EXPECT_EQ(run({"verify", good}, true).err, "");
  EXPECT_EQ(run({"create", path, writeManifest(goldenManifest())}, true).err, "");
}

}  // namespace
}  // namespace corvane::archivetest
