#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "controls/Control.h"

namespace corvane {

/// An item of a pop-up menu. Controllers know it by its index or its tag, never by its title.
struct PopUpItem {
  int64_t tag = 0;
  std::string title;
  bool hidden = false;

  bool operator==(const PopUpItem&) const = default;
};

/// A pop-up menu whose items are told apart by tag. The index of an item is its place in the model;
/// the order that the eye sees is the view's.
class PopUpButton : public Control {
 public:
  using Control::Control;

  const std::vector<PopUpItem>& items() const { return items_; }
  void setItems(std::vector<PopUpItem> items);

  /// Hides or shows the item at `index`; an index that does not exist changes nothing.
  void setItemHidden(size_t index, bool hidden);

  /// Selects the item with that tag. A tag that no item has selects nothing.
  void selectItemWithTag(int64_t tag);

  /// The selected item; nothing when none is.
  std::optional<size_t> selectedIndex() const { return selectedIndex_; }
  std::optional<int64_t> selectedTag() const;

  /// What is shown in place of a selected item, for a value that no item on show stands for.
  /// Cleared by the next selection.
  const std::string& plainValue() const { return plainValue_; }
  void showPlainValue(const std::string& text);

  /// Whether the menu's items are enabled by the toolkit rather than by hand.
  bool autoenablesItems() const { return autoenablesItems_; }
  void setAutoenablesItems(bool enables) { change(autoenablesItems_, enables); }

  /// What a choice by the user does; on the main queue, after the selection has changed.
  void setAction(std::function<void(PopUpButton&)> action) { action_ = std::move(action); }

  /// The user opened the menu, to choose or not. What opening does: on the main queue, before the
  /// menu is on the screen.
  void setOpenAction(std::function<void(PopUpButton&)> action) { openAction_ = std::move(action); }
  void open();
  bool isOpen() const { return open_; }

  /// The menu was closed by the user, or has to close because what it is for has gone.
  void close();

  /// What closing does, whoever closed it; on the main queue, after a choice.
  void setCloseAction(std::function<void(PopUpButton&)> action) {
    closeAction_ = std::move(action);
  }

  /// The user chose the item at `index`. Ignored while the menu cannot be used, for an item that is
  /// hidden and for an index that does not exist.
  void choose(size_t index);

 private:
  std::vector<PopUpItem> items_;
  std::optional<size_t> selectedIndex_;
  std::string plainValue_;
  bool autoenablesItems_ = true;
  bool open_ = false;
  std::function<void(PopUpButton&)> action_;
  std::function<void(PopUpButton&)> openAction_;
  std::function<void(PopUpButton&)> closeAction_;
};

}  // namespace corvane
