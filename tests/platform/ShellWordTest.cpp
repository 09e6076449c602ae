#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>

#include "platform/Shell.h"

using namespace corvane;

namespace {

/// What the shell makes of the one word that follows "printf %s".
std::string readByShell(const std::string& word) {
  std::FILE* const output = popen(("printf %s " + word).c_str(), "r");
  if (output == nullptr) return "no shell";
  std::array<char, 256> text{};
  const size_t length = std::fread(text.data(), 1, text.size(), output);
  pclose(output);
  return {text.data(), length};
}

TEST(ShellWord, APlainWordStandsAsItIs) {
  EXPECT_EQ(shellWord("en5"), "en5");
  EXPECT_EQ(shellWord("A.b_c-9"), "A.b_c-9");
  EXPECT_EQ(shellPath("/private/tmp/corvaneOutput.txt"), "/private/tmp/corvaneOutput.txt");
}

TEST(ShellWord, OnlyAPathHasPlainSlashes) {
  EXPECT_EQ(shellWord("a/b"), "'a/b'");
  EXPECT_EQ(shellPath("a/b"), "a/b");
}

TEST(ShellWord, AnEmptyWordIsStillAWord) {
  EXPECT_EQ(shellWord(""), "''");
  EXPECT_EQ(shellPath(""), "''");
}

TEST(ShellWord, TheShellReadsOneWordWhateverItHolds) {
  for (const std::string word : {"a b", "a;touch b", "$(id)", "`id`", "it's", "''", "a\nb", "*",
                                 "~", "\\", "\"", "\xC3\xA9", "&|<>"}) {
    EXPECT_EQ(readByShell(shellWord(word)), word);
    EXPECT_EQ(readByShell(shellPath(word)), word);
  }
}

TEST(ShellWord, AZeroByteWhichNoCommandLineCanHoldIsLeftOut) {
  EXPECT_EQ(shellWord(std::string("a\0b", 3)), "'ab'");
}

}  // namespace
