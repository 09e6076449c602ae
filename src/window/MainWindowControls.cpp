#include "window/MainWindowControls.h"

namespace corvane {

MainWindowControls::MainWindowControls(const Dispatch& dispatch)
    : ListControls(dispatch),
      BarControls(dispatch),
      FibreChannelDeviceControls(dispatch),
      FibreChannelPortControls(dispatch),
      TenGigabitDeviceControls(dispatch),
      TenGigabitPortControls(dispatch) {}

std::vector<const ControlSet*> MainWindowControls::pages() const {
  return {static_cast<const FibreChannelDeviceControls*>(this),
          static_cast<const FibreChannelPortControls*>(this),
          static_cast<const TenGigabitDeviceControls*>(this),
          static_cast<const TenGigabitPortControls*>(this)};
}

void MainWindowControls::clearPages() {
  for (const ControlSet* page : pages())
    for (Control* control : page->all()) control->clear();
}

std::vector<Control*> MainWindowControls::changing() const {
  std::vector<Control*> changing = BarControls::changing();
  for (const ControlSet* page : pages())
    changing.insert(changing.end(), page->changing().begin(), page->changing().end());
  return changing;
}

}  // namespace corvane
