#pragma once

#include <sstream>

#include "ProgramFixture.h"

namespace corvane {

/// `corvane` on a bench of the test's own, told by one line of words without blanks. The journal of
/// the last run tells what crossed the platform boundary.
class ChangingCommandFixture : public ProgramFixture {
 protected:
  /// The shipped demo bench, with its time running faster.
  explicit ChangingCommandFixture(double clockRate) : bench_(bench("demo")) {
    setClockRate(clockRate);
  }

  void setClockRate(double clockRate) {
    auto document = state();
    document["clockRate"] = clockRate;
    writeState(document);
  }

  void switchFault(const std::string& fault) {
    auto document = state();
    document["faults"][fault] = true;
    writeState(document);
  }

  const std::string& benchPath() const { return bench_; }

  nlohmann::ordered_json state() const { return nlohmann::ordered_json::parse(content(bench_)); }

  void writeState(const nlohmann::ordered_json& document) const {
    std::ofstream(bench_) << document.dump(2) << "\n";
  }

  /// Has the bench written with every field, as it is after any change, to be compared with that.
  void writeOutInFull() const {
    for (const char* state : {"on", "off"}) {
      EXPECT_EQ(run("corvane-bench", {bench_, "fault", "no-network", state}).status, 0);
    }
  }

  static std::string package(const std::string& name) {
    return CORVANE_SOURCE_DIR "/bench/packages/" + name;
  }

  std::vector<std::string> arguments(const std::string& words) const {
    std::vector<std::string> all{"--bench", bench_, "--journal", journalPath()};
    std::istringstream stream(words);
    for (std::string word; stream >> word;) all.push_back(word);
    return all;
  }

  /// Runs it to its end. The journal holds this run alone.
  ProgramAnswer command(const std::string& words) const {
    std::filesystem::remove(journalPath());
    return corvane(arguments(words));
  }

  /// Whether a command that was sent the signal has succeeded, or was ended by it. A quick command
  /// may be through with its change before the signal arrives, and in order it has to be anyway.
  static bool isDoneOrOvertaken(int status, int signal) {
    return status == 0 || (WIFSIGNALED(status) && WTERMSIG(status) == signal);
  }

  /// The journal's lines; one that is still being written is left out.
  std::vector<nlohmann::ordered_json> lines() const {
    std::vector<nlohmann::ordered_json> all;
    std::ifstream stream(journalPath());
    for (std::string line; std::getline(stream, line);) {
      if (nlohmann::ordered_json::accept(line)) all.push_back(nlohmann::ordered_json::parse(line));
    }
    return all;
  }

  /// The inputs of the driver calls with that selector, as hexadecimal.
  std::vector<std::string> sent(int selector) const {
    std::vector<std::string> inputs;
    for (const auto& line : lines()) {
      if (line["call"] == "userClient" && line["selector"] == selector) {
        inputs.push_back(line["input"]);
      }
    }
    return inputs;
  }

  /// What an update does, in order: "unmount disk4", "transfer", "mount disk4".
  std::vector<std::string> updateSteps() const {
    std::vector<std::string> steps;
    for (const auto& line : lines()) {
      if (line["call"] == "unmount" || line["call"] == "mount") {
        steps.push_back(std::string(line["call"]) + " " + std::string(line["disk"]));
      } else if (line["call"] == "userClient" && line["selector"] == 3) {
        steps.emplace_back("transfer");
      }
    }
    return steps;
  }

  /// The texts of the journal's lines of that call.
  std::vector<std::string> texts(const std::string& call, const std::string& key) const {
    std::vector<std::string> found;
    for (const auto& line : lines()) {
      if (line["call"] == call) found.push_back(line[key]);
    }
    return found;
  }

 private:
  std::string journalPath() const { return path("journal.jsonl").string(); }

  std::string bench_;
};

}  // namespace corvane
