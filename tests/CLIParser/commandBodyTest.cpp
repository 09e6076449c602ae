#include "CLIParser/commandBody.h"

#include <gmock/gmock.h>
#include <sys/wait.h>

#include <cstdlib>

#include "CLIParser/ScriptedShell.h"

namespace corvane {
namespace {

using testing::ElementsAre;

class commandBodyTest : public testing::Test {
 protected:
  commandBodyTest() {
    command.setNicName("en5");
    command.setCommandTittle("RxRingSize");
  }

  std::string tool(const std::string& words) const { return paths.utilityTool + " " + words; }
  std::string redirected(const std::string& command_) const {
    return command_ + " > " + paths.scratchFile;
  }
  void loseScratchFile() { std::filesystem::create_directory(paths.scratchFile); }

  TemporaryFolder folder;
  Paths paths = pathsWithScratchFileIn(folder.path());
  ScriptedShell shell{paths};
  commandBody command{shell, paths};
};

TEST_F(commandBodyTest, GetReadsOneSettingOfOneInterface) {
  shell.answer(tool("en5 getRxRingSize"), "RxRingSize=512\n");
  EXPECT_EQ(command.getCommand(command), "512\n");
  EXPECT_EQ(command.returnValue(), "512\n");
  EXPECT_THAT(shell.lines, ElementsAre(redirected(tool("en5 getRxRingSize"))));
}

TEST_F(commandBodyTest, GetWithoutAnEqualSignLeavesTheLastValue) {
  command.setReturnValue("before");
  shell.answer(tool("en5 getRxRingSize"), "no such setting\n");
  EXPECT_EQ(command.getCommand(command), std::nullopt);
  EXPECT_EQ(command.returnValue(), "before");
}

TEST_F(commandBodyTest, EveryAnswerIsFresh) {
  shell.answer(tool("en5 getRxRingSize"), "RxRingSize=512\n");
  command.getCommand(command);
  shell.forget(tool("en5 getRxRingSize"));
  EXPECT_EQ(command.getCommand(command), std::nullopt);
}

TEST_F(commandBodyTest, CheckIsTrueOnlyWhenNothingAtAllWasPrinted) {
  EXPECT_TRUE(command.checkCommand(command));
  EXPECT_THAT(shell.lines, ElementsAre(redirected(tool("all getRxRingSize"))));
  shell.answer(tool("all getRxRingSize"), "\n");
  EXPECT_FALSE(command.checkCommand(command));
  shell.answer(tool("all getRxRingSize"), "en5 RxRingSize=512\n");
  EXPECT_FALSE(command.checkCommand(command));
}

TEST_F(commandBodyTest, SetWritesAndReadsBack) {
  shell.answer(tool("en5 getRxRingSize"), "RxRingSize= 512 \n");
  command.setSetValue("512");
  EXPECT_TRUE(command.setCommand(command));
  EXPECT_EQ(command.returnValue(), "512");
  EXPECT_THAT(shell.lines,
              ElementsAre(tool("en5 setRxRingSize 512"), redirected(tool("en5 getRxRingSize"))));
}

TEST_F(commandBodyTest, SetComparesTextsNotNumbers) {
  shell.answer(tool("en5 getRxRingSize"), "RxRingSize=512\n");
  command.setSetValue("0512");
  EXPECT_FALSE(command.setCommand(command));
}

TEST_F(commandBodyTest, SetOfAValueThatTheDriverRoundsIsFalse) {
  shell.answer(tool("en5 getRxRingSize"), "RxRingSize=512\n");
  command.setSetValue("500");
  EXPECT_FALSE(command.setCommand(command));
  EXPECT_EQ(command.returnValue(), "512");
}

TEST_F(commandBodyTest, SetWithoutAnAnswerReadsAsEmpty) {
  command.setReturnValue("before");
  command.setSetValue("512");
  EXPECT_FALSE(command.setCommand(command));
  EXPECT_EQ(command.returnValue(), "");
}

TEST_F(commandBodyTest, SaveReadsNothingBack) {
  command.saveCommand(command);
  EXPECT_THAT(shell.lines, ElementsAre(tool("en5 saveConfig")));
}

TEST_F(commandBodyTest, RingCountIsWrittenWithoutReadingBack) {
  command.setCommandTittle("RxRingCount");
  command.setSetValue("8");
  command.setFuckSmallTreeRxring(command);
  EXPECT_THAT(shell.lines, ElementsAre(tool("en5 setRxRingCount 8")));
}

TEST_F(commandBodyTest, RingCountIsReadFromTheTable) {
  const std::string gap(8, ' ');
  command.setCommandTittle("RxRingCount");
  shell.answer(tool("en5 getRxRingCount"), "en5" + gap + "RxRingCount" + gap + "8\n");
  EXPECT_EQ(command.getFuckSmallTreeRxring(command), 8);
  EXPECT_THAT(shell.lines, ElementsAre(redirected(tool("en5 getRxRingCount"))));
}

TEST_F(commandBodyTest, ModuleReportGivesTheClassAndItsText) {
  command.setCommandTittle("SFPModule");
  shell.answer(tool("en5 getSFPModule"), "SFPModule: srlr\n");
  EXPECT_EQ(command.getSFPinfo(command), 2);
  EXPECT_EQ(command.returnValue(), " srlr\n");
  EXPECT_THAT(shell.lines, ElementsAre(redirected(tool("en5 getSFPModule"))));
}

TEST_F(commandBodyTest, ModuleReportWithoutAColonLeavesTheLastValue) {
  command.setReturnValue("before");
  EXPECT_EQ(command.getSFPinfo(command), 0);
  EXPECT_EQ(command.returnValue(), "before");
}

TEST_F(commandBodyTest, LinkIsReadFromTheStatusLine) {
  shell.answer("ifconfig en5|grep status", "\tstatus: inactive\n");
  EXPECT_EQ(command.getNICstatus(command), 0);
  shell.answer("ifconfig en5|grep status", "\tstatus: active\n");
  EXPECT_EQ(command.getNICstatus(command), 1);
  shell.forget("ifconfig en5|grep status");
  EXPECT_EQ(command.getNICstatus(command), 2);
  EXPECT_EQ(shell.lines.front(), redirected("ifconfig en5|grep status"));
}

TEST_F(commandBodyTest, MTUIsReadFromTheWholeReport) {
  shell.answer("ifconfig en5", "en5: flags=8863<UP> mtu 9000\n");
  EXPECT_EQ(command.getMTU(command), 9000);
  EXPECT_THAT(shell.lines, ElementsAre(redirected("ifconfig en5")));
}

TEST_F(commandBodyTest, MediumRedirectsBeforeThePipe) {
  shell.answer("ifconfig en5", "en5: mtu 1500\n\tmedia: autoselect (10Gbase-T <full-duplex>)\n");
  EXPECT_EQ(command.getCurrendSpeed(command), "10GbaseT");
  EXPECT_THAT(shell.lines, ElementsAre(redirected("ifconfig en5") + "|grep media"));
}

TEST_F(commandBodyTest, WithoutAScratchFileNoLineIsRunAndEveryAnswerIsTheSafeOne) {
  loseScratchFile();
  EXPECT_FALSE(command.checkCommand(command));
  EXPECT_EQ(command.getCommand(command), std::nullopt);
  EXPECT_EQ(command.getFuckSmallTreeRxring(command), 0);
  EXPECT_EQ(command.getSFPinfo(command), 0);
  EXPECT_EQ(command.getNICstatus(command), 2);
  EXPECT_EQ(command.getMTU(command), 0);
  EXPECT_EQ(command.getCurrendSpeed(command), "Unknow");
  EXPECT_THAT(shell.lines, ElementsAre());
}

TEST_F(commandBodyTest, WithoutAScratchFileASetStillWrites) {
  loseScratchFile();
  command.setSetValue("512");
  EXPECT_FALSE(command.setCommand(command));
  EXPECT_THAT(shell.lines, ElementsAre(tool("en5 setRxRingSize 512")));
}

TEST_F(commandBodyTest, AnotherObjectCanCarryTheRequest) {
  commandBody request(shell, paths);
  request.setNicName("en6");
  request.setCommandTittle("TxRingSize");
  shell.answer(tool("en6 getTxRingSize"), "TxRingSize=1024\n");
  EXPECT_EQ(command.getCommand(request), "1024\n");
  EXPECT_EQ(request.returnValue(), "1024\n");
  EXPECT_EQ(command.returnValue(), "");
}

TEST_F(commandBodyTest, PlainNamesStandInTheLineAsTheyAre) {
  command.setNicName("bridge0.en-5_x");
  command.saveCommand(command);
  EXPECT_THAT(shell.lines, ElementsAre(tool("bridge0.en-5_x saveConfig")));
}

TEST_F(commandBodyTest, NamesThatAreNotPlainStayOneWord) {
  command.setNicName("en5; rm -rf $HOME 'x'");
  command.setCommandTittle("Rx`id`");
  command.setSetValue("1 2\n3");
  command.setFuckSmallTreeRxring(command);
  command.getNICstatus(command);
  EXPECT_THAT(shell.lines,
              ElementsAre(tool("'en5; rm -rf $HOME '\\''x'\\''' 'setRx`id`' '1 2\n3'"),
                          redirected("ifconfig 'en5; rm -rf $HOME '\\''x'\\'''|grep status")));
}

TEST_F(commandBodyTest, EmptyNameStaysAWord) {
  command.setNicName("");
  command.getMTU(command);
  EXPECT_THAT(shell.lines, ElementsAre(redirected("ifconfig ''")));
}

/// Hands the lines to the shell of the system.
class SystemCommandShell : public Shell {
 public:
  int run(const std::string& line) override { return std::system(line.c_str()); }
  int runWithin(const std::string& line, std::chrono::milliseconds) override { return run(line); }
};

TEST(commandBodyShellTest, WhateverAnInterfaceIsCalledTheShellTakesItAsOneWord) {
  TemporaryFolder folder;
  Paths paths = pathsWithScratchFileIn(folder.path() / "a folder; with 'marks'");
  std::filesystem::create_directory(folder.path() / "a folder; with 'marks'");
  paths.utilityTool = "/usr/bin/printf";
  SystemCommandShell shell;
  commandBody command(shell, paths);
  command.setCommandTittle("");
  for (const std::string name : {"en5", "x y", "$(id)", "a'b", "\"q\"", "tab\there", "*", "a\nb"}) {
    command.setNicName("=" + name + "%.0s");
    EXPECT_EQ(command.getCommand(command), name);
  }
}

TEST(TrimmedTextTest, TakesBlanksAndLineEndsOffBothEnds) {
  EXPECT_EQ(trimmedText(" \t\r\n512 \n\n"), "512");
  EXPECT_EQ(trimmedText("a b"), "a b");
  EXPECT_EQ(trimmedText(" \n"), "");
  EXPECT_EQ(trimmedText(""), "");
}

}  // namespace
}  // namespace corvane
