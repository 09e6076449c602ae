#include "firmware/FirmwareUpdate.h"

#include <fmt/format.h>

#include <algorithm>

#include "Corvane2Info.h"
#include "CorvaneAPI.h"
#include "DeviceMonitorCORVANE2_8FC/Corvane2Device.h"
#include "DeviceMonitorCORVANE2_8FC/FCPort.h"
#include "firmware/Volumes.h"

namespace corvane {

namespace {

constexpr size_t confirmingButton = 0;
constexpr size_t cancellingButton = 1;

// How far along each step leaves the whole, by the time it takes.
constexpr double extractedFraction = 0.2;
constexpr double unmountedFraction = 0.25;
constexpr double transferredFraction = 0.95;
constexpr double mountedFraction = 1.0;

AlertContent warning(const std::string& informativeText) {
  return {"Warning", informativeText, {{"Ok", true, false}}, "corvane_warning.icns"};
}

}  // namespace

/// What a running update works on. Each member is used by one thread at a time: the main queue
/// before and after the transfer, the worker during it.
struct FirmwareUpdate::Job {
  std::shared_ptr<Corvane2Info> info;
  RegistryObject service;
  std::promise<void> ended;
  FirmwareUpdateOutcome outcome;
};

FirmwareUpdate::FirmwareUpdate(const Platform& platform, MainWindowControls& controls,
                               ControllerState& state, AlertContent& updateAlert, Volumes& volumes,
                               std::function<std::vector<std::string>()> getBSDVolumeList)
    : platform_(platform),
      controls_(controls),
      state_(state),
      updateAlert_(updateAlert),
      volumes_(volumes),
      getBSDVolumeList_(std::move(getBSDVolumeList)),
      mainWork_(platform.dispatch, *this) {
  controls_.updateFW.setAction([this](Button&) { updateFW(); });
}

FirmwareUpdate::~FirmwareUpdate() {
  if (job_.valid()) job_.wait();
}

// Choosing and verifying.

void FirmwareUpdate::updateFW() {
  if (stage_ != Stage::Idle) return;
  if (!hasAdapter()) {
    platform_.prompts.showModalAlert(warning("Please select a Fibre Channel adapter first."));
    return;
  }
  stage_ = Stage::Choosing;
  adapter_ = state_.corvaneDevice;
  OpenPanelRequest request;
  request.prompt = "Select";
  platform_.prompts.showOpenPanel(request,
                                  [this](const std::vector<std::string>& paths) { chosen(paths); });
}

bool FirmwareUpdate::hasAdapter() const {
  return state_.intProduct == static_cast<int64_t>(AdapterFamily::FibreChannel) &&
         state_.corvaneInfo && state_.corvaneDevice && state_.corvaneDevice->port1() &&
         state_.corvaneDevice->port1()->portService() != 0;
}

void FirmwareUpdate::chosen(const std::vector<std::string>& paths) {
  stage_ = Stage::Idle;
  if (paths.empty()) return;
  firmwarePath_ = paths.front();
  if (firmwarePath_.size() <= 1) return;
  const bool verified = verifyFirmwarePackage(firmwarePath_).succeeded();
  if (verified) stage_ = Stage::Verified;
  mainWork_.async(verified ? &FirmwareUpdate::confirm : &FirmwareUpdate::tellUnverified);
}

void FirmwareUpdate::tellUnverified() {
  platform_.prompts.showModalAlert(warning("Your file can not be verified, please try again."));
}

// Since the package was chosen another adapter may have taken the place of the one that went, an
// online update may have begun, or the lock may have been closed.
const char* FirmwareUpdate::obstacle() const {
  if (!hasAdapter() || state_.corvaneDevice != adapter_.lock()) {
    return "The adapter has gone. Nothing was updated.";
  }
  if (!controls_.updateFW.isEnabled()) {
    return "Nothing was updated. Open the lock, or wait until the other update has ended.";
  }
  return nullptr;
}

// An earlier update has hidden buttons and changed the icon, so both are set anew.
void FirmwareUpdate::confirm() {
  confirmedVersion_ = verifyFirmwarePackage(firmwarePath_).version;
  updateAlert_.message = "Note";
  updateAlert_.informativeText = fmt::format(
      "The new FW version: {} \n\nUpdate FW will terminat all I/O access, if you want continue "
      "please click\"Ok\" or click\"Cancel\" exit",
      confirmedVersion_);
  updateAlert_.icon.clear();
  for (const size_t button : {confirmingButton, cancellingButton}) {
    updateAlert_.buttons.at(button).enabled = true;
    updateAlert_.buttons.at(button).hidden = false;
  }
  showAlert([this](int code) { alertEnded(code); });
}

void FirmwareUpdate::showAlert(std::function<void(int)> ended) {
  platform_.prompts.showAlertSheet(&updateAlert_, updateAlert_, SheetParent::MainWindow,
                                   std::move(ended));
}

// Updating. The extraction waits its turn on the main queue while the worker already unmounts and
// asks for the image; the transfer's repeated attempts bridge the gap.

void FirmwareUpdate::alertEnded(int code) {
  if (stage_ != Stage::Verified) return;
  stage_ = Stage::Idle;
  if (code != alertFirstButton) return;
  if (const char* const text = obstacle()) {
    platform_.prompts.showModalAlert(warning(text));
    return;
  }
  start();
}

void FirmwareUpdate::start() {
  stage_ = Stage::Running;
  controls_.updateFW.suspend();
  progress_ = 0;
  removeFirmwareImage(platform_.paths.transferImage);

  auto job = std::make_shared<Job>();
  job->info = state_.corvaneInfo;
  job->service = state_.corvaneDevice->port1()->retainedService();
  job->outcome.version = confirmedVersion_;
  job_ = job->ended.get_future();
  platform_.dispatch.asyncGlobal(QueuePriority::Default, [this, job] { run(job); });
}

// The destructor waits for the job, so the worker may use the object; what it leaves on the main
// queue may come too late and asks first.
void FirmwareUpdate::run(const std::shared_ptr<Job>& job) {
  const auto onMain = [this, job](void (FirmwareUpdate::*step)(Job&)) {
    mainWork_.async([job, step](FirmwareUpdate& update) { (update.*step)(*job); });
  };
  onMain(&FirmwareUpdate::extract);
  const auto group = platform_.dispatch.createGroup();
  group->async(QueuePriority::Default, [this, job] { transfer(*job); });
  group->wait();
  onMain(&FirmwareUpdate::finish);
  job->ended.set_value();
}

void FirmwareUpdate::extract(Job& job) {
  const auto progress = [this](uint64_t done, uint64_t total) {
    if (total > 0) {
      advance(extractedFraction * static_cast<double>(done) / static_cast<double>(total));
    }
  };
  job.outcome.extraction = extractFirmwareImage(firmwarePath_, platform_.paths.extractedImage,
                                                progress, job.outcome.version);
  platform_.shell.run("chmod 777 " + shellPath(platform_.paths.extractedImage));
  updateAlert_.message = "Wait";
  updateAlert_.informativeText = "Update FW is running, Please wait...";
  updateAlert_.icon = "loading7.gif";
  updateAlert_.buttons.at(confirmingButton).hidden = true;
  updateAlert_.buttons.at(cancellingButton).hidden = true;
  showAlert({});
  advance(extractedFraction);
}

void FirmwareUpdate::transfer(Job& job) {
  const std::vector<std::string> names = getBSDVolumeList_();
  volumes_.unmountAllVolume(names);
  advanceFromWorker(unmountedFraction);
  job.outcome.transferResult = job.info->port1Info.UpgradeELXFWUserClient(
      job.service.get(), platform_.paths.transferImage, &job.outcome.driverStatus);
  advanceFromWorker(transferredFraction);
  volumes_.mountAllVolume(names);
  advanceFromWorker(mountedFraction);
}

void FirmwareUpdate::finish(Job& job) {
  updateAlert_.message = "Finish";
  updateAlert_.informativeText = "Please restart device to launch new FW !";
  updateAlert_.buttons.at(confirmingButton).hidden = false;
  showAlert({});
  lastOutcome_ = job.outcome;
  stage_ = Stage::Idle;
  controls_.updateFW.resume();
}

// The steps on the main queue and on the worker overlap; the bar never goes backwards.
void FirmwareUpdate::advance(double fraction) {
  progress_ = std::max(progress_, fraction);
  platform_.prompts.showAlertProgress(&updateAlert_, progress_);
}

void FirmwareUpdate::advanceFromWorker(double fraction) {
  mainWork_.async([fraction](FirmwareUpdate& update) { update.advance(fraction); });
}

}  // namespace corvane
