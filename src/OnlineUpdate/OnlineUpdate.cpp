#include "OnlineUpdate/OnlineUpdate.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <string_view>
#include <utility>

#include "discovery/FirmwareVersion.h"

namespace corvane {

namespace {

/// A public web host that answers while there is a network at all.
constexpr const char* networkTestHost = "www.apple.com";
/// A network that swallows packets does not hold up the window for longer.
constexpr std::chrono::seconds networkTestLimit{15};

constexpr const char* catalogueName = "CorvaneOnlineInfo.plist";
/// Whatever name the catalogue gives the software's image, the one that is opened is this.
constexpr const char* softwareImageName = "CORVANE_Utility.dmg";

constexpr const char* selectedColumn = "selected";
constexpr const char* titleColumn = "title";
constexpr const char* versionColumn = "version";

bool contains(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

UpdateDownload cancelledDownload() {
  return {1, "it was cancelled", true};
}

AlertContent warningAlert(const std::string& message, const std::string& informativeText) {
  return {message, informativeText, {{"Ok"}}, "corvane_warning.icns"};
}

std::string withoutTrailingSlashes(std::string url) {
  while (!url.empty() && url.back() == '/') url.pop_back();
  return url;
}

}  // namespace

OnlineUpdate::OnlineUpdate(const Platform& platform, Surroundings surroundings)
    : platform_(platform),
      mainWindow_(surroundings.mainWindow),
      state_(surroundings.state),
      isUpdatingFromFile_(std::move(surroundings.isUpdatingFromFile)),
      controls_(platform.dispatch),
      installation_(platform, {surroundings.state.CorvaneList, surroundings.volumes,
                               std::move(surroundings.getBSDVolumeList), [this] { closeWindow(); },
                               [this] { installationEnded(); }}) {
  mainWindow_.checkUpdate.setAction([this](Button&) { checkUpdate(); });
  controls_.updateButton.setAction([this](Button&) { selectUpdate(); });
  controls_.cancelButton.setAction([this](Button&) { cancelUpdate(); });
  controls_.updateWindow.setCloseAction([this] { cancelUpdate(); });
  controls_.updateTable.setAction([this](TableView&) { tableViewSelectionDidChange(); });
}

// The check.

void OnlineUpdate::checkUpdate() {
  if (isBusy()) return;
  const std::string base = baseUrl();
  lastCheck_ = {};
  lastCheck_.networkAnswered = networkAnswers();
  if (!lastCheck_.networkAnswered) {
    platform_.prompts.showModalAlert(
        warningAlert("Waring", "Connot connect to network, please try again later !"));
    return;
  }
  serverUrl_ = contains(base, catalogueName) ? base : base + operatingSystemFolder();
  updateItem_.clear();
  if (isAnythingNewer()) {
    showWindow();
  } else {
    closeWindow();
    platform_.prompts.showModalAlert(warningAlert("Warning", "Your system is up to date!"));
  }
}

/// What is pending of one kind hides the kinds behind it.
bool OnlineUpdate::isAnythingNewer() {
  isChecking_ = true;
  for (Button* button : suspendedButtons()) button->suspend();
  const bool isNewer = checkAllVersions("SW") == 1 || checkAllVersions("FW_8G") == 1 ||
                       checkAllVersions("FW_16G") == 1;
  for (Button* button : suspendedButtons()) button->resume();
  isChecking_ = false;
  return isNewer;
}

bool OnlineUpdate::networkAnswers() {
  return platform_.shell.runWithin(std::string("ping -c1 -s1 ") + networkTestHost,
                                   networkTestLimit) == 0;
}

std::string OnlineUpdate::baseUrl() const {
  if (!server_.empty()) return withoutTrailingSlashes(server_);
  const auto engine = platform_.bundles.resourcePropertyList("UpdateEngine", "plist");
  const PropertyValue* const url = engine ? findProperty(*engine, "plistURL") : nullptr;
  return url != nullptr && url->text() != nullptr ? *url->text() : "";
}

/// Every release without a folder of its own takes the last one.
std::string OnlineUpdate::operatingSystemFolder() const {
  const std::string release = platform_.systemVersion.productVersion();
  if (contains(release, "10.8.")) return "/10.8";
  if (contains(release, "10.9.")) return "/10.9";
  if (contains(release, "10.10")) return "/10.10";
  return "/10.11";
}

int64_t OnlineUpdate::checkAllVersions(const std::string& kind) {
  if (kind == "SW") {
    readRule("Corvane_SW");
    return checkSoftware();
  }
  if (kind == "FW_8G") {
    readRule("Corvane_FW_8G");
    return checkFirmware("Corvane2 8G FC", "FW(8G)");
  }
  if (kind == "FW_16G") {
    readRule("Corvane_FW_16G");
    return checkFirmware("Corvane2 16G FC", "FW(16G)");
  }
  return 0;
}

/// A catalogue that cannot be read leaves the fields of the last rule as they are; one without a
/// rule for the product empties them.
void OnlineUpdate::readRule(const std::string& productID) {
  lastCheck_.catalogueUrl = serverUrl_ + "/" + catalogueName;
  const CatalogueReading catalogue =
      fetchCatalogue(platform_, lastCheck_.catalogueUrl, [this](uint64_t, uint64_t) {
        serveWindow();
        return true;
      });
  if (!catalogue.rules) {
    lastCheck_.catalogueProblem = catalogue.problem;
    platform_.log.system(lastCheck_.catalogueUrl + ": " + catalogue.problem);
    return;
  }
  const UpdateRule* const found = findRule(*catalogue.rules, productID);
  const UpdateRule rule = found == nullptr ? UpdateRule() : *found;
  theNewVersion_ = rule.Version;
  fileName_ = rule.FileName;
  fileSize_ = rule.Size;
  fileInfo_ = rule.Info;
}

int64_t OnlineUpdate::checkSoftware() {
  const auto version = platform_.bundles.mainInfoValue("CFBundleShortVersionString");
  const std::string local = version && version->text() != nullptr ? *version->text() : "";
  if (checkPackageVersion(local, theNewVersion_) == 0) return 0;
  UpdateDevice updateInfo;
  updateInfo.updateName = softwareUpdateName;
  addCandidate(std::move(updateInfo));
  return 1;
}

int64_t OnlineUpdate::checkFirmware(const std::string& productType, const std::string& rowName) {
  for (const DeviceListEntry& adapter : state_.CorvaneList.entries()) {
    if (adapter.ProductType != productType) continue;
    if (checkPackageVersion(adapter.Version, theNewVersion_) == 0) continue;
    UpdateDevice updateInfo;
    updateInfo.updateName = fmt::format("{} {}({})", rowName, adapter.WWN, adapter.Sequence);
    updateInfo.deviceWWN = adapter.WWN;
    addCandidate(std::move(updateInfo));
  }
  return updateItem_.empty() ? 0 : 1;
}

void OnlineUpdate::addCandidate(UpdateDevice candidate) {
  candidate.currentVer = theNewVersion_;
  candidate.updateDescription = fileInfo_;
  updateItem_.push_back(std::move(candidate));
}

int64_t OnlineUpdate::checkPackageVersion(const std::string& local, const std::string& online) {
  return offersMore(local, online) ? 1 : 0;
}

void OnlineUpdate::cancelUpdate() {
  if (isBusy()) {
    isCancelWanted_ = true;
    return;
  }
  closeWindow();
  updateItem_.clear();
}

void OnlineUpdate::showWindow() {
  controls_.updateWindow.load();
  controls_.updateState.setText("Tick what is to be installed.");
  controls_.updateMessage.setText("");
  controls_.updateTable.selectRow(-1);
  controls_.updateWindow.show();
  controls_.updateTable.reloadData();
}

void OnlineUpdate::closeWindow() {
  controls_.updateWindow.drop();
}

// The installation.

int64_t OnlineUpdate::downloadFile(const std::string& fileName) {
  UpdateDownload& download = installation_.outcome().download;
  download = {1, updateFileNameProblem(fileName, platform_.paths)};
  if (download.problem.empty()) download = fetchUpdate(fileName);
  if (download.result != 0) {
    const std::string text = "Not downloaded: " + download.problem;
    controls_.updateState.setText(text);
    platform_.log.system(text);
  }
  return download.result;
}

UpdateDownload OnlineUpdate::fetchUpdate(const std::string& fileName) {
  if (isCancelWanted_) return cancelledDownload();
  controls_.updateState.setText("Downloading " + fileName);
  controls_.updateProgress.start();
  isDownloading_ = true;
  UpdateDownload download = downloadUpdateFile(
      platform_, serverUrl_ + "/" + fileName, downloadPath(fileName),
      [this](uint64_t received, uint64_t total) { return showProgress(received, total); });
  isDownloading_ = false;
  controls_.updateProgress.setFraction(std::nullopt);
  controls_.updateProgress.stop();
  return download.result != 0 && isCancelWanted_ ? cancelledDownload() : download;
}

bool OnlineUpdate::showProgress(uint64_t received, uint64_t total) {
  if (total != 0) {
    controls_.updateProgress.setFraction(static_cast<double>(std::min(received, total)) /
                                         static_cast<double>(total));
  }
  serveWindow();
  return !isCancelWanted_;
}

void OnlineUpdate::serveWindow() {
  if (whileDownloading_) whileDownloading_();
}

std::string OnlineUpdate::downloadPath(const std::string& fileName) const {
  return platform_.paths.downloadFolder + "/" + fileName;
}

void OnlineUpdate::selectUpdate() {
  if (isBusy()) return;
  const bool isAnyTicked = std::any_of(updateItem_.begin(), updateItem_.end(),
                                       [](const auto& candidate) { return candidate.isSelect; });
  if (!isAnyTicked) return tellNothingSelected();
  isCancelWanted_ = false;
  const UpdateDevice& first = updateItem_.front();
  if (first.isSelect && first.updateName == softwareUpdateName) return installSoftware();
  if (!contains(first.updateName, "FW") && !first.isSelect) return tellNothingSelected();
  installFirmware();
}

void OnlineUpdate::installSoftware() {
  installation_.outcome() = {};
  openSoftwareImage();
  closeWindow();
  updateItem_.clear();
  if (!lastInstallation().download.cancelled) platform_.prompts.terminate();
}

/// An image that stands there from before is removed first; where that is not possible, it is not
/// opened as if it had just come.
void OnlineUpdate::openSoftwareImage() {
  const std::string image = downloadPath(softwareImageName);
  const bool isRemoved = unlink(image.c_str()) == 0 || errno == ENOENT;
  for (Button* button : suspendedButtons()) button->suspend();
  const bool isReplaced = downloadFile(fileName_) == 0 && fileName_ == softwareImageName;
  for (Button* button : suspendedButtons()) button->resume();
  if (lastInstallation().download.cancelled) return;
  if (isRemoved || isReplaced) platform_.shell.run("open " + shellPath(image));
}

void OnlineUpdate::installFirmware() {
  if (isUpdatingFromFile_()) {
    installation_.outcome() = {{1, "firmware is being updated from a file"}, {}, {}};
    controls_.updateState.setText("Wait until the firmware update from a file has ended.");
    return;
  }
  for (Button* button : suspendedButtons()) button->suspend();
  installation_.start(
      updateItem_, [this] { return downloadPackage(); }, downloadPath(fileName_));
}

/// Cancelling is possible until here only: what follows must not be left half done.
UpdateDownload OnlineUpdate::downloadPackage() {
  downloadFile(fileName_);
  controls_.cancelButton.suspend();
  return installation_.outcome().download;
}

void OnlineUpdate::installationEnded() {
  updateItem_.clear();
  controls_.cancelButton.resume();
  for (Button* button : suspendedButtons()) button->resume();
}

std::array<Button*, 3> OnlineUpdate::suspendedButtons() {
  return {&mainWindow_.checkUpdate, &mainWindow_.updateFW, &controls_.updateButton};
}

void OnlineUpdate::tellNothingSelected() {
  platform_.prompts.showModalAlert(warningAlert("Error", "You don't select any device!!"));
}

// The table.

const UpdateDevice* OnlineUpdate::candidate(int64_t row) const {
  const bool exists = row >= 0 && row < numberOfRowsInTableView();
  return exists ? &updateItem_[static_cast<size_t>(row)] : nullptr;
}

int64_t OnlineUpdate::numberOfRowsInTableView() const {
  return static_cast<int64_t>(updateItem_.size());
}

PropertyValue OnlineUpdate::tableViewObjectValueForTableColumn(const std::string& column,
                                                               int64_t row) const {
  const UpdateDevice* const shown = candidate(row);
  if (shown == nullptr) return {};
  if (column == selectedColumn) return static_cast<int64_t>(shown->isSelect ? 1 : 0);
  if (column == titleColumn) return shown->updateName;
  if (column == versionColumn) return shown->currentVer;
  return {};
}

bool OnlineUpdate::tableViewWillDisplayCellForTableColumn(const std::string& column,
                                                          int64_t row) const {
  return column == selectedColumn && candidate(row) != nullptr;
}

void OnlineUpdate::tableViewSetObjectValueForTableColumn(const PropertyValue& value,
                                                         const std::string& column, int64_t row) {
  if (column != selectedColumn || candidate(row) == nullptr || isBusy()) return;
  const bool isTicked = (value.number() != nullptr && *value.number() != 0) ||
                        (value.boolean() != nullptr && *value.boolean());
  updateItem_[static_cast<size_t>(row)].isSelect = isTicked;
  controls_.updateTable.reloadData();
}

void OnlineUpdate::tableViewSelectionDidChange() {
  const UpdateDevice* const selected = candidate(controls_.updateTable.selectedRow());
  controls_.updateMessage.setText(selected == nullptr ? "" : selected->updateDescription);
}

}  // namespace corvane
