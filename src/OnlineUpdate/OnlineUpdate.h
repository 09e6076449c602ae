#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "OnlineUpdate/UpdateCatalogue.h"
#include "OnlineUpdate/UpdateDevice.h"
#include "OnlineUpdate/UpdateDownload.h"
#include "OnlineUpdate/UpdateInstallation.h"
#include "OnlineUpdate/UpdateWindowControls.h"
#include "platform/Platform.h"
#include "window/ControllerState.h"
#include "window/MainWindowControls.h"

namespace corvane {

class Volumes;

/// What the last check met. The window tells only of a network that does not answer; the command
/// line tells of both.
struct UpdateCheckOutcome {
  bool networkAnswered = false;
  std::string catalogueUrl;
  std::string catalogueProblem;  ///< why the catalogue could not be read; empty when it was
};

/// The online update: asks the maker's server for the catalogue of current packages, compares it
/// with the utility and the attached adapters, lists what is newer in the update window, downloads
/// and installs what the user ticks.
///
/// Main queue only. The check and each download block it; see whileDownloading(). Nothing else of
/// this class's begins meanwhile.
class OnlineUpdate {
 public:
  /// What an installation needs of the rest of the system. All outlive the object.
  struct Surroundings {
    MainWindowControls& mainWindow;
    ControllerState& state;
    Volumes& volumes;
    std::function<std::vector<std::string>()> getBSDVolumeList;
    /// Whether an update from a file is running; the two never run side by side.
    std::function<bool()> isUpdatingFromFile;
  };

  OnlineUpdate(const Platform& platform, Surroundings surroundings);
  OnlineUpdate(const OnlineUpdate&) = delete;
  OnlineUpdate& operator=(const OnlineUpdate&) = delete;

  UpdateWindowControls& controls() { return controls_; }

  /// The candidates, one for each row of the window.
  const std::vector<UpdateDevice>& updateItem() const { return updateItem_; }

  /// The server to ask in place of the one that the application's resources name; empty for that
  /// one. It takes an operating system's folder like the other.
  void setServer(const std::string& url) { server_ = url; }

  // The check.

  /// The whole check, then either the update window or a message.
  void checkUpdate();

  /// Fetches the catalogue and adds what is newer of one kind: "SW", "FW_8G" or "FW_16G". Returns 1
  /// when there is something, else 0; 0 for any other kind.
  int64_t checkAllVersions(const std::string& kind);

  /// 1 when an update is offered: when any of the first four components of `online` is greater than
  /// the component of `local` at the same place. Missing components count as 0.
  static int64_t checkPackageVersion(const std::string& local, const std::string& online);

  /// Closes the window and empties the list of candidates. While something is being downloaded, the
  /// download ends first, and nothing is installed; ignored while firmware is being installed.
  void cancelUpdate();

  const UpdateCheckOutcome& lastCheck() const { return lastCheck_; }

  // The installation.

  /// Brings the catalogue's file of that name to the download folder. Returns 0 when it is there, 1
  /// when the transfer failed, 2 when the transfer library could not be initialised.
  int64_t downloadFile(const std::string& fileName);

  /// What is done again and again while a download, the catalogue's too, blocks the main queue, so
  /// that the window can paint itself and take the user's wish to cancel. It must not run the
  /// queue's other work.
  void whileDownloading(std::function<void()> step) { whileDownloading_ = std::move(step); }

  /// The update button: installs what is ticked.
  void selectUpdate();

  /// Whether firmware is being installed.
  bool isInstalling() const { return installation_.isRunning(); }

  /// What the last installation came to.
  const UpdateInstallationOutcome& lastInstallation() const { return installation_.outcome(); }

  // The table of candidates. Columns are named "selected", "title" and "version".

  int64_t numberOfRowsInTableView() const;

  /// What a cell shows: a number for "selected", a text for the others, nothing outside the table.
  PropertyValue tableViewObjectValueForTableColumn(const std::string& column, int64_t row) const;

  /// Whether a cell that is about to be drawn can be used.
  bool tableViewWillDisplayCellForTableColumn(const std::string& column, int64_t row) const;

  /// The user changed a cell; only "selected" can be.
  void tableViewSetObjectValueForTableColumn(const PropertyValue& value, const std::string& column,
                                             int64_t row);

  /// The user selected another row: its description is shown.
  void tableViewSelectionDidChange();

 private:
  bool networkAnswers();
  bool isAnythingNewer();
  std::string baseUrl() const;
  std::string operatingSystemFolder() const;
  void readRule(const std::string& productID);
  int64_t checkSoftware();
  int64_t checkFirmware(const std::string& productType, const std::string& rowName);
  void addCandidate(UpdateDevice candidate);
  void showWindow();
  void closeWindow();
  std::string downloadPath(const std::string& fileName) const;
  UpdateDownload fetchUpdate(const std::string& fileName);
  bool showProgress(uint64_t received, uint64_t total);
  void openSoftwareImage();
  void installSoftware();
  void installFirmware();
  UpdateDownload downloadPackage();
  void installationEnded();
  void serveWindow();
  bool isBusy() const { return isChecking_ || isDownloading_ || isInstalling(); }
  std::array<Button*, 3> suspendedButtons();
  void tellNothingSelected();
  const UpdateDevice* candidate(int64_t row) const;

  const Platform platform_;
  MainWindowControls& mainWindow_;
  ControllerState& state_;
  std::function<bool()> isUpdatingFromFile_;
  UpdateWindowControls controls_;
  std::string server_;

  std::string serverUrl_;
  std::vector<UpdateDevice> updateItem_;

  // The last rule that matched.
  std::string theNewVersion_;
  std::string fileName_;
  std::string fileSize_;
  std::string fileInfo_;

  UpdateCheckOutcome lastCheck_;

  std::function<void()> whileDownloading_;
  bool isChecking_ = false;
  bool isDownloading_ = false;
  bool isCancelWanted_ = false;
  UpdateInstallation installation_;
};

}  // namespace corvane
