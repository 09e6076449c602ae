#pragma once

#include <cstdint>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "fibre_channel/FirmwareImageFile.h"
#include "platform/OwnedMainWork.h"
#include "platform/Platform.h"
#include "window/ControllerState.h"
#include "window/MainWindowControls.h"

namespace corvane {

class Volumes;

/// What an update came to. The window tells none of it; the command line does.
struct FirmwareUpdateOutcome {
  std::string version;  ///< of the image, as the user has agreed to it
  ImageExtraction extraction;
  int64_t transferResult = 0;           ///< 0 handed over, 1 no image could be read
  Status driverStatus = statusSuccess;  ///< what the driver answered, if it was handed over

  bool succeeded() const {
    return extraction.complete && transferResult == 0 && driverStatus == statusSuccess;
  }
};

/// The update of a Fibre Channel adapter's firmware from a package file: choosing the file,
/// verifying it, asking, then extracting the image, taking the volumes offline, handing the image
/// to the adapter's first port, bringing the volumes back. One update at a time; while one runs its
/// button is out of use.
///
/// Main queue only. An update that runs is waited for by the destructor, so that no volume stays
/// offline behind a window that was closed.
class FirmwareUpdate {
 public:
  /// `updateAlert` is the main controller's one alert for updates; it has two buttons, confirming
  /// and cancelling. `getBSDVolumeList` is called on a worker thread. All outlive the object.
  FirmwareUpdate(const Platform& platform, MainWindowControls& controls, ControllerState& state,
                 AlertContent& updateAlert, Volumes& volumes,
                 std::function<std::vector<std::string>()> getBSDVolumeList);
  FirmwareUpdate(const FirmwareUpdate&) = delete;
  FirmwareUpdate& operator=(const FirmwareUpdate&) = delete;
  ~FirmwareUpdate();

  /// The update button: asks for a package and goes on with it. Ignored while an update is on its
  /// way.
  void updateFW();

  /// The end of the confirmation. Only the first button's code goes on, and only with the adapter
  /// for which the package was chosen and while the update button is in use.
  void alertEnded(int code);

  /// Whether a package is being chosen or confirmed, or an update runs.
  bool isUnderWay() const { return stage_ != Stage::Idle; }

  /// Whether an image is being handed over, from the confirmation to the last alert. The window
  /// asks before it closes then.
  bool isRunning() const { return stage_ == Stage::Running; }

  /// What the last update that ended came to; nothing before one has.
  const std::optional<FirmwareUpdateOutcome>& lastOutcome() const { return lastOutcome_; }

 private:
  enum class Stage { Idle, Choosing, Verified, Running };
  struct Job;

  void chosen(const std::vector<std::string>& paths);
  void tellUnverified();
  void confirm();
  const char* obstacle() const;  ///< why the confirmed update cannot start; null when it can
  void start();
  void showAlert(std::function<void(int)> ended);
  bool hasAdapter() const;
  void run(const std::shared_ptr<Job>& job);
  void extract(Job& job);
  void transfer(Job& job);
  void finish(Job& job);
  void advance(double fraction);
  void advanceFromWorker(double fraction);

  const Platform platform_;
  MainWindowControls& controls_;
  ControllerState& state_;
  AlertContent& updateAlert_;
  Volumes& volumes_;
  std::function<std::vector<std::string>()> getBSDVolumeList_;

  Stage stage_ = Stage::Idle;
  std::weak_ptr<Corvane2Device> adapter_;  ///< the one on show when the package was asked for
  std::string firmwarePath_;
  std::string confirmedVersion_;  ///< what the confirmation names
  double progress_ = 0;
  std::optional<FirmwareUpdateOutcome> lastOutcome_;
  std::future<void> job_;
  OwnedMainWork<FirmwareUpdate> mainWork_;
};

}  // namespace corvane
