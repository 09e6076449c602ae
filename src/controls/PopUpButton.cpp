#include "controls/PopUpButton.h"

#include <algorithm>

namespace corvane {

void PopUpButton::setItems(std::vector<PopUpItem> items) {
  requireMain();
  items_ = std::move(items);
  selectedIndex_.reset();
  plainValue_.clear();
  changed();
}

void PopUpButton::setItemHidden(size_t index, bool hidden) {
  requireMain();
  if (index < items_.size()) change(items_[index].hidden, hidden);
}

void PopUpButton::selectItemWithTag(int64_t tag) {
  requireMain();
  const auto found = std::find_if(items_.begin(), items_.end(),
                                  [tag](const PopUpItem& item) { return item.tag == tag; });
  if (found == items_.end()) {
    selectedIndex_.reset();
  } else {
    selectedIndex_ = static_cast<size_t>(found - items_.begin());
  }
  plainValue_.clear();
  changed();
}

std::optional<int64_t> PopUpButton::selectedTag() const {
  if (!selectedIndex_) return std::nullopt;
  return items_[*selectedIndex_].tag;
}

void PopUpButton::showPlainValue(const std::string& text) {
  requireMain();
  selectedIndex_.reset();
  plainValue_ = text;
  changed();
}

void PopUpButton::open() {
  requireMain();
  if (open_ || !isUsable()) return;
  if (openAction_) openAction_(*this);
  change(open_, true);
}

void PopUpButton::close() {
  requireMain();
  if (!open_) return;
  change(open_, false);
  if (closeAction_) closeAction_(*this);
}

void PopUpButton::choose(size_t index) {
  requireMain();
  if (!isUsable() || index >= items_.size() || items_[index].hidden) return;
  selectedIndex_ = index;
  plainValue_.clear();
  changed();
  if (action_) action_(*this);
}

}  // namespace corvane
