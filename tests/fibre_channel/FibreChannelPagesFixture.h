#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "SFPController.h"
#include "fibre_channel/FibreChannelFixture.h"
#include "pages/FibreChannelPages.h"

namespace corvane {

/// The Fibre Channel pages on a computer with a new driver.
class FibreChannelPagesFixture : public FibreChannelFixture {
 protected:
  static constexpr const char* newDriver = "/Library/Extensions/Corvane2-FC.kext";

  FibreChannelPagesFixture() { fake.bundles.install(newDriver, "2.0.8"); }

  /// Shows the device page, which reads the driver's version, and then a port's.
  void showPort(int64_t index) {
    pages->show8GDeviceInfo();
    pages->show8GPortInfo(index);
  }

  void chooseTag(PopUpButton& menu, int64_t tag) {
    const auto& items = menu.items();
    for (size_t index = 0; index < items.size(); ++index) {
      if (items[index].tag == tag) menu.choose(index);
    }
  }

  bool offersTag(const PopUpButton& menu, int64_t tag) {
    for (const PopUpItem& item : menu.items()) {
      if (item.tag == tag) return !item.hidden;
    }
    return false;
  }

  void expectLink(const std::string& speed, const std::string& topology) {
    EXPECT_EQ(controls.currentSpeed.text(), speed);
    EXPECT_EQ(controls.currentTopology.text(), topology);
  }

  SFPController sfp{fake.platform(), controls};
  std::unique_ptr<FibreChannelPages> pages =
      std::make_unique<FibreChannelPages>(fake.platform(), controls, state, sfp);
};

}  // namespace corvane
