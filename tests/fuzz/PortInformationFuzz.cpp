// Reads any bytes as a driver's reply about a port and shows what came of it in the pages' menus.

#include <algorithm>
#include <cstdint>
#include <span>

#include "CorvaneAPI.h"
#include "fakes/FakeLog.h"
#include "fakes/FakeUserClient.h"
#include "fakes/ManualDispatch.h"
#include "fibre_channel/FibreChannelProtocol.h"
#include "fuzz/Require.h"
#include "pages/FibreChannelMenus.h"

using namespace corvane;

namespace {
void checkMenu(const PopUpButton& menu) {
  fuzz::require(menu.selectedIndex().has_value() == menu.plainValue().empty(),
                "an item or a plain value");
  fuzz::require(!menu.selectedIndex() || !menu.items()[*menu.selectedIndex()].hidden,
                "the item shown is not hidden");
}

void showInMenus(const CorvaneAPI& port) {
  const ManualDispatch dispatch;
  PopUpButton speed(dispatch, "setSpeed");
  PopUpButton topology(dispatch, "setTopology");
  PopUpButton depth(dispatch, "setQueueDepth");
  speed.setItems(speedMenuItems());
  topology.setItems(topologyMenuItems());
  depth.setItems(queueDepthMenuItems());
  trimSpeedMenu(speed, port.fwVer);
  trimTopologyMenu(topology, port.fwVer);
  trimQueueDepthMenu(depth, port.fwVer);
  showSpeed(speed, port.settingSpeed);
  showTopology(topology, port.settingTopology);
  showQueueDepth(depth, port.queueDepth);
  checkMenu(speed);
  checkMenu(topology);
  checkMenu(depth);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::span<const uint8_t> reply(data, std::min(size, PortInfoStruct::size));
  ManualDispatch dispatch;
  FakeUserClient userClient;
  FakeLog log;
  userClient.answer = [reply](RegistryHandle, uint32_t, std::span<const uint8_t>,
                              std::span<uint8_t> output) {
    std::copy(reply.begin(), reply.end(), output.begin());
    return statusSuccess;
  };
  CorvaneAPI port(userClient, dispatch, log);
  port.GetCorvaneInfoFunction(1);
  fuzz::require(port.WWNN.size() == 23 && port.WWPN.size() == 23,
                "names are eight pairs of digits");
  fuzz::require(port.fwVer.size() <= PortInfoStruct::firmwareVersion.width,
                "a version fits its field");
  fuzz::require(port.queueDepth != 0 && port.portSpeed != 1 && port.settingSpeed != 1,
                "values that no adapter has are replaced");
  showInMenus(port);
  return 0;
}
