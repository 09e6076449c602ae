#include "AboutDialog.h"

#include <string>

namespace corvane {

AboutDialog::AboutDialog(const Dispatch& dispatch, Bundles& bundles)
    : window(dispatch, "AboutDialog"),
      labelUtilityName(dispatch, "labelUtilityName"),
      labelVersion(dispatch, "labelVersion"),
      labelCopyright(dispatch, "labelCopyright"),
      bundles_(bundles) {}

void AboutDialog::show() {
  window.drop();
  window.load();
  windowDidLoad();
  window.show();
}

void AboutDialog::windowDidLoad() {
  const auto information = [this](const std::string& key) {
    return bundles_.mainInfoValue(key).value_or(PropertyValue()).description();
  };
  labelUtilityName.setText("CORVANE Utility");
  labelVersion.setText("Version " + information("CFBundleShortVersionString"));
  labelCopyright.setText(information("NSHumanReadableCopyright"));
}

}  // namespace corvane
