#include "ui/pages/TenGigabitPortPage.h"

#include "ui/controls/Bindings.h"
#include "ui_TenGigabitPortPage.h"
#include "window/MainWindowControls.h"

namespace corvane {

TenGigabitPortPage::TenGigabitPortPage(QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::TenGigabitPortPage>()) {
  ui_->setupUi(this);
}

TenGigabitPortPage::~TenGigabitPortPage() = default;

void TenGigabitPortPage::bindTo(MainWindowControls& controls) {
  bind(controls.enStatus, *ui_->enStatus);
  bind(controls.macAddress, *ui_->macAddress);
  bind(controls.enName, *ui_->enName);
  bind(controls.MTUvalue, *ui_->MTUvalue);
  bind(controls.SFPInfoModule, *ui_->SFPInfoModule);
  bind(controls.SFPerrrorMessage10G, *ui_->SFPerrrorMessage10G);
  bind(controls.settingMode, *ui_->settingMode);
  bind(controls.enableTCPipv4, *ui_->enableTCPipv4);
  bind(controls.enableRSC, *ui_->enableRSC);
  bind(controls.modeProgress, *ui_->modeProgress);
  bindVisibility(controls.SFPTypeLabel, *ui_->SFPTypeLabel);
  bindVisibility(controls.SFPInfoContent, *ui_->SFPInfoContent);
}

}  // namespace corvane
