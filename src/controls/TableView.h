#pragma once

#include <cstdint>
#include <functional>
#include <utility>

#include "controls/Control.h"

namespace corvane {

/// A table whose rows come from a data source: the view asks the controller for the number of rows
/// and for each cell whenever it is told of a change.
class TableView : public Control {
 public:
  using Control::Control;

  /// In points.
  int64_t rowHeight() const { return rowHeight_; }
  void setRowHeight(int64_t points) { change(rowHeight_, points); }

  /// The rows have changed; the view asks for all of them again.
  void reloadData() {
    requireMain();
    ++generation_;
    changed();
  }

  /// Counts the calls of reloadData().
  uint64_t generation() const { return generation_; }

  /// The selected row; -1 when none is.
  int64_t selectedRow() const { return selectedRow_; }
  void selectRow(int64_t row) { change(selectedRow_, row); }

  /// What a change of the selection by the user does; on the main queue.
  void setAction(std::function<void(TableView&)> action) { action_ = std::move(action); }

  /// The user selected a row.
  void choose(int64_t row) {
    requireMain();
    if (!isUsable()) return;
    selectRow(row);
    if (action_) action_(*this);
  }

 private:
  int64_t rowHeight_ = 0;
  int64_t selectedRow_ = -1;
  uint64_t generation_ = 0;
  std::function<void(TableView&)> action_;
};

}  // namespace corvane
