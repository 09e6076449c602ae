#pragma once

#include <cstdint>

#include "controls/Button.h"
#include "inventory/DeviceList.h"
#include "pages/FamilyPages.h"
#include "window/ControllerState.h"

namespace corvane {

/// The tags of the three buttons that choose a page.
enum class PageButtonTag : int64_t { Port1 = 0, Port2 = 1, Device = 2 };

/// Which adapter and which of its pages are on show. The one place that knows; everything that is
/// the same for both families is here, the rest is behind FamilyPages. Main queue only.
class PageSelection {
 public:
  /// Everything outlives the selection.
  PageSelection(MainWindowControls& controls, ControllerState& state, FamilyPages& fibreChannel,
                FamilyPages& tenGigabit);
  PageSelection(const PageSelection&) = delete;
  PageSelection& operator=(const PageSelection&) = delete;

  /// Shows an adapter's first page: that of its first port that has one, else the device page.
  void show(const DeviceListEntry& adapter);

  /// Makes an adapter that was announced the current one and fills its device page, whatever is on
  /// show.
  void prepare(const DeviceListEntry& adapter);

  /// Nothing is on show.
  void showNothing();

  /// One of the page buttons was pressed, by its tag.
  void press(PageButtonTag button);

  /// Reads anew what is on show.
  void refresh();

  /// Brings the buttons to what the list and the adapter on show allow.
  void enableButtons();

  /// The pages of the family on show; null before an adapter was.
  FamilyPages* pages() const;

 private:
  void makeCurrent(const DeviceListEntry& adapter);
  void showPort(int64_t portIndex);
  void showDevice();
  void mark(PageButtonTag shown);
  void setUsable(UsablePorts usable);

  MainWindowControls& controls_;
  ControllerState& state_;
  FamilyPages& fibreChannel_;
  FamilyPages& tenGigabit_;
  UsablePorts usable_;
};

}  // namespace corvane
