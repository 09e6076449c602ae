#include "pages/PageSelection.h"

#include <variant>

namespace corvane {

PageSelection::PageSelection(MainWindowControls& controls, ControllerState& state,
                             FamilyPages& fibreChannel, FamilyPages& tenGigabit)
    : controls_(controls), state_(state), fibreChannel_(fibreChannel), tenGigabit_(tenGigabit) {
  controls_.port1Button.setTag(static_cast<int64_t>(PageButtonTag::Port1));
  controls_.port2Button.setTag(static_cast<int64_t>(PageButtonTag::Port2));
  controls_.deviceButton.setTag(static_cast<int64_t>(PageButtonTag::Device));
}

FamilyPages* PageSelection::pages() const {
  switch (static_cast<AdapterFamily>(state_.intProduct)) {
    case AdapterFamily::FibreChannel:
      return &fibreChannel_;
    case AdapterFamily::TenGigabit:
      return &tenGigabit_;
  }
  return nullptr;
}

void PageSelection::makeCurrent(const DeviceListEntry& adapter) {
  state_.intProduct = static_cast<int64_t>(adapter.family());
  if (adapter.family() == AdapterFamily::FibreChannel) {
    state_.corvaneDevice = std::get<std::shared_ptr<Corvane2Device>>(adapter.obj);
    state_.corvaneInfo = adapter.info;
  } else {
    state_.corvaneDevice_10GE = std::get<std::shared_ptr<Corvane2Device_10GE>>(adapter.obj);
  }
}

// The device page comes first where the port page asks for the driver's version that it reads.
void PageSelection::show(const DeviceListEntry& adapter) {
  makeCurrent(adapter);
  const UsablePorts usable = pages()->usablePorts();
  setUsable(usable);
  if (!usable.port1 && !usable.port2) return showDevice();
  if (adapter.family() == AdapterFamily::TenGigabit) pages()->showDevice();
  showPort(usable.port1 ? 0 : 1);
}

void PageSelection::prepare(const DeviceListEntry& adapter) {
  makeCurrent(adapter);
  if (adapter.family() == AdapterFamily::FibreChannel) pages()->showDevice();
}

void PageSelection::showNothing() {
  state_.corvaneInfo.reset();
  state_.corvaneDevice.reset();
  state_.corvaneDevice_10GE.reset();
  state_.selectPort = 0;
  setUsable({});
  controls_.deviceTable.selectRow(-1);
  controls_.tabView.selectTabViewItemAtIndex(static_cast<int64_t>(Page::NoAdapter));
  for (Button* button : {&controls_.port1Button, &controls_.port2Button, &controls_.deviceButton})
    button->setOn(false);
  controls_.clearPages();
}

void PageSelection::press(PageButtonTag button) {
  if (state_.CorvaneList.count() == 0 || pages() == nullptr) return;
  switch (button) {
    case PageButtonTag::Port1:
      return showPort(0);
    case PageButtonTag::Port2:
      return showPort(1);
    case PageButtonTag::Device:
      return showDevice();
  }
}

void PageSelection::refresh() {
  if (state_.CorvaneList.count() == 0 || pages() == nullptr) return;
  const int64_t portIndex = state_.selectPort == 2 ? 1 : 0;
  const Button& button = portIndex == 1 ? controls_.port2Button : controls_.port1Button;
  const auto page = static_cast<Page>(controls_.tabView.selectedIndex());
  if (page == pages()->devicePage()) pages()->showDevice();
  if (button.isEnabled()) pages()->showPort(portIndex);
}

void PageSelection::showPort(int64_t portIndex) {
  controls_.tabView.selectTabViewItemAtIndex(static_cast<int64_t>(pages()->portPage()));
  mark(portIndex == 0 ? PageButtonTag::Port1 : PageButtonTag::Port2);
  pages()->showPort(portIndex);
}

void PageSelection::showDevice() {
  controls_.tabView.selectTabViewItemAtIndex(static_cast<int64_t>(pages()->devicePage()));
  mark(PageButtonTag::Device);
  pages()->showDevice();
}

void PageSelection::mark(PageButtonTag shown) {
  for (Button* button : {&controls_.port1Button, &controls_.port2Button, &controls_.deviceButton})
    button->setOn(button->tag() == static_cast<int64_t>(shown));
}

// The view asks for the rows at any time, and each time the buttons follow.
void PageSelection::setUsable(UsablePorts usable) {
  usable_ = usable;
  enableButtons();
}

void PageSelection::enableButtons() {
  const bool isAny = state_.CorvaneList.count() != 0;
  controls_.port1Button.setEnabled(isAny && usable_.port1);
  controls_.port2Button.setEnabled(isAny && usable_.port2);
  controls_.deviceButton.setEnabled(isAny);
  controls_.refreshButton.setEnabled(isAny);
}

}  // namespace corvane
