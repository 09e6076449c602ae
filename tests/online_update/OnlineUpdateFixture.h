#pragma once

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "OnlineUpdate/OnlineUpdate.h"
#include "TemporaryFolder.h"
#include "fakes/OneFilePackage.h"
#include "fibre_channel/FibreChannelFixture.h"
#include "firmware/Volumes.h"
#include "online_update/CatalogueText.h"

namespace corvane {

inline constexpr const char* sixteenGigabit = "Corvane2 16G FC";

/// The online update on a computer made of fakes, with a server that holds a catalogue, and a
/// download folder of its own.
class OnlineUpdateFixture : public FibreChannelFixture {
 protected:
  OnlineUpdateFixture() {
    fake.paths.downloadFolder = folder_.string();
    fake.paths.extractedImage = folder_.string() + "/emulex.grp";
    fake.paths.transferImage = fake.paths.extractedImage;
    fake.paths.home = folder_.string() + "/home";
    fake.bundles.mainInfo["CFBundleShortVersionString"] = PropertyValue("1.0.0.0");
    serveFrom("http://server/updates");
    volumes = std::make_unique<Volumes>(fake.platform());
    update = std::make_unique<OnlineUpdate>(
        fake.platform(),
        OnlineUpdate::Surroundings{controls, state, *volumes, [this] { return volumeNames; },
                                   [this] { return isUpdatingFromFile; }});
  }

  ~OnlineUpdateFixture() override {
    dispatch.advance(std::chrono::minutes(1));
    update.reset();
  }

  void serveFrom(const std::string& plistURL) {
    fake.bundles.resources["UpdateEngine.plist"] = {{"plistURL", PropertyValue(plistURL)}};
  }

  void serve(const std::string& url, const std::string& content) {
    fake.transfer.answers[url] = {0, content, ""};
  }

  void serveCatalogue(const std::vector<UpdateRule>& rules) {
    serve("http://server/updates/10.11/CorvaneOnlineInfo.plist", catalogueXml(rules));
  }

  /// Attaches an adapter of that product to the computer and to the list. Returns the service of
  /// its first port.
  RegistryHandle addAdapter(const std::string& product, const std::string& wwn,
                            const std::string& label, const std::string& version) {
    attachCorvane2With16G();
    DeviceListEntry entry;
    entry.WWN = wwn;
    entry.Sequence = label;
    entry.obj = device;
    entry.Version = version;
    entry.ProductType = product;
    state.CorvaneList.add(entry);
    return firstService;
  }

  /// Unplugs the adapter with that name.
  void removeAdapter(const std::string& wwn) {
    for (const DeviceListEntry& entry : state.CorvaneList.entries()) {
      if (entry.WWN == wwn) std::get<std::shared_ptr<Corvane2Device>>(entry.obj)->clearAll();
    }
    state.CorvaneList.removeWWN(wwn);
  }

  /// The bytes of a package that holds `image` as `member`.
  std::string package(const std::string& image, const std::string& member = "emulex.grp") {
    const std::string path = folder_.string() + "/made.pkg";
    writeOneFilePackage(path, image, member);
    std::ifstream made(path, std::ios::binary);
    std::string content{std::istreambuf_iterator<char>(made), {}};
    made.close();
    std::filesystem::remove(path);
    return content;
  }

  void tick(int64_t row) {
    update->tableViewSetObjectValueForTableColumn(PropertyValue(1), "selected", row);
  }

  std::vector<std::string> candidateNames() const {
    std::vector<std::string> names;
    for (const UpdateDevice& candidate : update->updateItem())
      names.push_back(candidate.updateName);
    return names;
  }

  bool isWindowShown() { return update->controls().updateWindow.isShown(); }

  const TemporaryFolder temporary_;
  const std::filesystem::path folder_ = temporary_.path();
  std::vector<std::string> volumeNames{"disk4", "disk4s1"};
  bool isUpdatingFromFile = false;
  std::unique_ptr<Volumes> volumes;
  std::unique_ptr<OnlineUpdate> update;
};

}  // namespace corvane
