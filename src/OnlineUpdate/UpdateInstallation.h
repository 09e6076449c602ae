#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "OnlineUpdate/UpdateDevice.h"
#include "OnlineUpdate/UpdateDownload.h"
#include "fibre_channel/FirmwareImageFile.h"
#include "inventory/DeviceList.h"
#include "platform/OwnedMainWork.h"
#include "platform/Platform.h"

namespace corvane {

class Volumes;

/// What became of one adapter's update.
struct AdapterUpdateOutcome {
  explicit AdapterUpdateOutcome(std::string wwn) : deviceWWN(std::move(wwn)) {}

  std::string deviceWWN;
  bool attached = false;                  ///< whether the adapter was still there
  std::optional<int64_t> transferResult;  ///< 0 handed over; nothing when it was not tried
  Status driverStatus = statusSuccess;    ///< what the driver answered

  bool succeeded() const { return transferResult == 0 && driverStatus == statusSuccess; }
};

/// What an installation came to. The window tells none of it; the command line does.
struct UpdateInstallationOutcome {
  UpdateDownload download;
  ImageExtraction extraction;  ///< of firmware only
  std::vector<AdapterUpdateOutcome> adapters;
};

/// The installation of one firmware package on several adapters, one after another: the download,
/// the extraction of the image, the volumes taken offline, a transfer for each adapter, the volumes
/// brought back. It goes on whatever fails and tells the user the same, but hands an adapter only
/// an image that this very installation has extracted. A download that the user cancels ends it.
///
/// Main queue only; the adapters are looked at on a worker thread between.
class UpdateInstallation {
 public:
  /// What the installation works with. All outlive the object.
  struct Steps {
    DeviceList& devices;
    Volumes& volumes;
    std::function<std::vector<std::string>()> getBSDVolumeList;
    std::function<void()> closeWindow;  ///< closes the update window
    std::function<void()> ended;        ///< the last step: forgets the candidates
  };

  UpdateInstallation(const Platform& platform, Steps steps);
  UpdateInstallation(const UpdateInstallation&) = delete;
  UpdateInstallation& operator=(const UpdateInstallation&) = delete;

  /// Brings volumes back that a firmware update has left offline.
  ~UpdateInstallation();

  /// Starts the firmware work for the ticked ones of `candidates`, of which there is at least one.
  /// `download` brings the package and returns what came of it; `package` is where it brings it.
  void start(const std::vector<UpdateDevice>& candidates, std::function<UpdateDownload()> download,
             const std::string& package);

  bool isRunning() const { return running_; }

  UpdateInstallationOutcome& outcome() { return outcome_; }
  const UpdateInstallationOutcome& outcome() const { return outcome_; }

 private:
  struct Job;
  class Worker;

  void prepare(const Job& job);
  RegistryObject serviceOf(const std::string& deviceWWN) const;
  void announce(const std::string& adapter, const std::string& place, size_t processed,
                size_t count);
  void transfer(const Job& job, size_t index, RegistryHandle service);
  void finish();
  void tellFinished();
  void showAlert();

  const Platform platform_;
  Steps steps_;
  AlertContent updateAlert_;
  AlertContent finishAlert_;
  bool running_ = false;
  std::vector<std::string> unmounted_;
  UpdateInstallationOutcome outcome_;
  OwnedMainWork<UpdateInstallation> mainWork_;
};

}  // namespace corvane
