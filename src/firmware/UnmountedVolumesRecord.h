#pragma once

#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace corvane {

/// Keeps in a file which volumes this program has taken offline, so that the next start can tell
/// when it ended before it brought them back. The file is locked as long as it names volumes; a
/// lock that is gone shows that the program that held it is gone too. Any thread may call.
class UnmountedVolumesRecord {
 public:
  /// `path` is made with its folder when there is something to record.
  explicit UnmountedVolumesRecord(std::string path);
  UnmountedVolumesRecord(const UnmountedVolumesRecord&) = delete;
  UnmountedVolumesRecord& operator=(const UnmountedVolumesRecord&) = delete;
  ~UnmountedVolumesRecord();

  /// Adds names to the file. False when it cannot be written or belongs to another program that
  /// is running.
  bool add(const std::vector<std::string>& names);

  /// Takes names out; the file goes with the last one, unless another program left names in it.
  void remove(const std::vector<std::string>& names);

  /// The names that a program which has ended left in the file, which is then removed; empty when
  /// there are none or the program that wrote them is still running.
  std::vector<std::string> takeLeftBehind();

 private:
  bool lock();
  bool save();
  void release();

  std::string path_;
  std::mutex mutex_;  ///< guards what follows
  std::set<std::string> names_;
  /// What another program that ended left in the file meanwhile; kept there for the next start.
  std::vector<std::string> foundNames_;
  int descriptor_ = -1;  ///< the locked file, -1 while there is none
};

}  // namespace corvane
