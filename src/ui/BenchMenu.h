#pragma once

#include <QMenu>
#include <functional>

#include "platform/bench/file/BenchFile.h"

namespace corvane {

/// The menu of a simulated computer: plugs and unplugs adapters, drops and restores links, and
/// shows the file. It only edits the file; the window follows it like any other program would.
class BenchMenu : public QMenu {
  Q_OBJECT

 public:
  BenchMenu(const std::string& path, QWidget* parent);

 private:
  void fill();
  void addPlugMenu(const BenchState& state);
  void addUnplugMenu(const BenchState& state);
  void addLinkMenu(const BenchState& state);
  void edit(const std::function<void(BenchState&)>& change);
  void showFile();
  void tell(const QString& problem);

  BenchFile file_;
};

}  // namespace corvane
