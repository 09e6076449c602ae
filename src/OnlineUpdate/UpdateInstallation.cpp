#include "OnlineUpdate/UpdateInstallation.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include "Corvane2Info.h"
#include "DeviceMonitorCORVANE2_8FC/Corvane2Device.h"
#include "DeviceMonitorCORVANE2_8FC/FCPort.h"
#include "firmware/Volumes.h"

namespace corvane {

namespace {

// The blanks break the line in the alert.
constexpr int blanksBetweenSentences = 82;

}  // namespace

/// What an installation works on; fixed once it has started.
struct UpdateInstallation::Job {
  std::vector<UpdateDevice> ticked;
  size_t candidateCount = 0;
  std::function<UpdateDownload()> download;
  std::string package;
};

/// The part of an installation that runs on worker threads. It may outlive the installation, which
/// it reaches through the main queue only.
class UpdateInstallation::Worker : public std::enable_shared_from_this<Worker> {
 public:
  using Installation = OwnedMainWork<UpdateInstallation>::Way;

  Worker(const Platform& platform, Installation installation, std::shared_ptr<const Job> job)
      : platform_(platform), installation_(std::move(installation)), job_(std::move(job)) {}

  void run() const {
    installation_.async(
        [job = job_](UpdateInstallation& installation) { installation.prepare(*job); });
    for (size_t index = 0; index < job_->ticked.size(); ++index) {
      const auto group = platform_.dispatch.createGroup();
      group->async(QueuePriority::Default,
                   [self = shared_from_this(), index] { self->update(index); });
      group->wait();
    }
    installation_.async(&UpdateInstallation::finish);
  }

 private:
  void update(size_t index) const {
    const RegistryObject service = findService(job_->ticked[index].deviceWWN);
    if (!service) return;
    Corvane2Info info(platform_);
    info.port1Info.GetCorvaneInfoFunction(service.get());
    info.deviceSequence = info.sortDeviceSequence(service.get());
    const std::string place =
        fmt::format("{}-{}", textOrNull(info.devicePort), info.deviceSequence);
    installation_.sync([&](UpdateInstallation& installation) {
      installation.announce(info.port1Info.WWNN, place, index + 1, job_->candidateCount);
    });
    installation_.sync([&](UpdateInstallation& installation) {
      installation.transfer(*job_, index, service.get());
    });
  }

  /// The service of the adapter's first port; none when the adapter has gone.
  RegistryObject findService(const std::string& deviceWWN) const {
    RegistryObject service;
    installation_.sync([&service, &deviceWWN](UpdateInstallation& installation) {
      service = installation.serviceOf(deviceWWN);
    });
    return service;
  }

  const Platform platform_;
  const Installation installation_;
  const std::shared_ptr<const Job> job_;
};

UpdateInstallation::UpdateInstallation(const Platform& platform, Steps steps)
    : platform_(platform), steps_(std::move(steps)), mainWork_(platform.dispatch, *this) {
  updateAlert_.buttons = {{"OK"}, {"Cancel"}};
}

UpdateInstallation::~UpdateInstallation() {
  if (!unmounted_.empty()) steps_.volumes.mountAllVolume(unmounted_);
}

void UpdateInstallation::start(const std::vector<UpdateDevice>& candidates,
                               std::function<UpdateDownload()> download,
                               const std::string& package) {
  auto job = std::make_shared<Job>();
  std::copy_if(candidates.begin(), candidates.end(), std::back_inserter(job->ticked),
               [](const UpdateDevice& candidate) { return candidate.isSelect; });
  job->candidateCount = candidates.size();
  job->download = std::move(download);
  job->package = package;
  running_ = true;
  outcome_ = {};
  for (const UpdateDevice& device : job->ticked) outcome_.adapters.emplace_back(device.deviceWWN);
  const auto worker = std::make_shared<Worker>(platform_, mainWork_.way(), job);
  platform_.dispatch.asyncGlobal(QueuePriority::Background, [worker] { worker->run(); });
}

/// An image of an earlier run is removed first, and a package of an earlier run is left alone, so
/// that nothing but what comes now can reach an adapter.
void UpdateInstallation::prepare(const Job& job) {
  removeFirmwareImage(platform_.paths.transferImage);
  outcome_.download = job.download();
  if (outcome_.download.cancelled) return;
  if (outcome_.download.result == 0) {
    outcome_.extraction = extractFirmwareImage(job.package, platform_.paths.transferImage);
  }
  updateAlert_.message = "Wait";
  updateAlert_.informativeText = "Downloading file, please wait..." +
                                 std::string(blanksBetweenSentences, ' ') +
                                 "It will unmiubt all volument later for update.";
  updateAlert_.icon = "loading7.gif";
  for (AlertButton& button : updateAlert_.buttons) button.hidden = true;
  showAlert();
  unmounted_ = steps_.getBSDVolumeList();
  steps_.volumes.unmountAllVolume(unmounted_);
}

RegistryObject UpdateInstallation::serviceOf(const std::string& deviceWWN) const {
  if (outcome_.download.cancelled) return {};
  for (const DeviceListEntry& entry : steps_.devices.entries()) {
    const auto* device = std::get_if<std::shared_ptr<Corvane2Device>>(&entry.obj);
    if (entry.WWN != deviceWWN || device == nullptr || !*device) continue;
    if (const auto port = (*device)->port1()) return port->retainedService();
  }
  return {};
}

void UpdateInstallation::announce(const std::string& adapter, const std::string& place,
                                  size_t processed, size_t count) {
  steps_.devices.sort();
  updateAlert_.informativeText =
      fmt::format("Now is updating Device {}({})   Processed Device ...{}/{}", adapter, place,
                  processed, count);
  updateAlert_.icon = "corvane.icns";
  showAlert();
  platform_.prompts.showAlertProgress(
      &updateAlert_, static_cast<double>(processed - 1) / static_cast<double>(count));
}

void UpdateInstallation::transfer(const Job& job, size_t index, RegistryHandle service) {
  AdapterUpdateOutcome& adapter = outcome_.adapters.at(index);
  adapter.attached = true;
  if (outcome_.download.result != 0 || !outcome_.extraction.complete) {
    platform_.log.system("No image of " + job.package + " for " + adapter.deviceWWN);
    return;
  }
  const CorvaneAPI port(platform_.userClient, platform_.dispatch, platform_.log);
  adapter.transferResult =
      port.UpgradeELXFWUserClient(service, platform_.paths.transferImage, &adapter.driverStatus);
}

void UpdateInstallation::finish() {
  if (outcome_.download.cancelled) {
    steps_.closeWindow();
  } else {
    tellFinished();
  }
  running_ = false;
  steps_.ended();
}

void UpdateInstallation::tellFinished() {
  platform_.prompts.endAlertSheet(&updateAlert_);
  steps_.closeWindow();
  finishAlert_ = {"Finish",
                  "Update firmware successfully, please un-plug thunderbolt cable and restart "
                  "device to launch new version!",
                  {{"Ok"}},
                  "corvane_warning.icns"};
  platform_.prompts.showAlertSheet(&finishAlert_, finishAlert_, SheetParent::MainWindow, {});
  steps_.volumes.mountAllVolume(std::exchange(unmounted_, {}));
}

void UpdateInstallation::showAlert() {
  platform_.prompts.showAlertSheet(&updateAlert_, updateAlert_, SheetParent::UpdateWindow, {});
}

}  // namespace corvane
