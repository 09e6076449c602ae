#include "ui/pages/TenGigabitDevicePage.h"

#include "ui/controls/Bindings.h"
#include "ui_TenGigabitDevicePage.h"
#include "window/MainWindowControls.h"

namespace corvane {

TenGigabitDevicePage::TenGigabitDevicePage(QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::TenGigabitDevicePage>()) {
  ui_->setupUi(this);
}

TenGigabitDevicePage::~TenGigabitDevicePage() = default;

void TenGigabitDevicePage::bindTo(MainWindowControls& controls) {
  bind(controls.productType10G, *ui_->productType10G);
  bind(controls.drvVer_10GE, *ui_->drvVer_10GE);
}

}  // namespace corvane
