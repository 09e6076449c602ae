#include "CorvaneAPI.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <new>
#include <span>

#include "fibre_channel/FibreChannelProtocol.h"
#include "fibre_channel/FirmwareImageFile.h"
#include "fibre_channel/SFPDecoder.h"

namespace corvane {

namespace {

constexpr int64_t succeeded = 0;
constexpr int64_t failed = 1;

/// One connection to a port's driver, released with the object. A connection that could not be
/// opened can be called all the same; the call then fails.
class DriverConnection {
 public:
  DriverConnection(UserClient& userClient, RegistryHandle service) : userClient_(userClient) {
    opened_ = userClient_.open(service, fibreChannelConnectionType, connection_);
  }
  DriverConnection(const DriverConnection&) = delete;
  DriverConnection& operator=(const DriverConnection&) = delete;
  ~DriverConnection() { userClient_.release(connection_); }

  Status opened() const { return opened_; }

  /// What the driver answered, or why there was no connection to ask it through.
  Status call(FibreChannelSelector selector, std::span<const uint8_t> input,
              std::span<uint8_t> output) {
    size_t outputSize = output.size();
    const Status answered = userClient_.callStructMethod(
        connection_, static_cast<uint32_t>(selector), input, output, outputSize);
    return opened_ == statusSuccess ? answered : opened_;
  }

 private:
  UserClient& userClient_;
  UserClientConnection connection_ = 0;
  Status opened_ = statusSuccess;
};

std::string sizeLine(size_t size) {
  return fmt::format("structureOutputSize={}(Byte)\n", size);
}

template <typename Structure>
std::array<uint8_t, Structure::size> request(const StructureField& field, uint64_t value) {
  std::array<uint8_t, Structure::size> input{};
  putNumber(input, field, value);
  return input;
}

// The reply is as long as the request and is not looked at.
template <size_t Size>
int64_t applySetting(DriverConnection& connection, FibreChannelSelector selector,
                     const std::array<uint8_t, Size>& input, Log& log, Status* driverStatus) {
  std::array<uint8_t, Size> output{};
  log.standardOutput(sizeLine(Size));
  const Status answered = connection.call(selector, input, output);
  if (driverStatus != nullptr) *driverStatus = answered;
  return answered == statusSuccess ? succeeded : failed;
}

uint64_t foldedSpeed(uint64_t reported) {
  return reported == speedAutomaticOf16G ? speedAutomatic : reported;
}

uint64_t foldedQueueDepth(uint64_t reported) {
  return reported == 0 ? defaultQueueDepth : reported;
}

std::string deviceText(uint64_t deviceNumber) {
  return static_cast<uint32_t>(deviceNumber) == corvane2DeviceNumber ? "Velmar Corvane2" : "Unknow";
}

std::string worldWideName(std::span<const uint8_t> bytes) {
  return fmt::format("{:02X}", fmt::join(bytes, ":"));
}

void logModule(const SFPDescription& module, Log& log) {
  if (module.bitRate) {
    log.system(fmt::format("sfp_pOut->BitRate_100mbs/10  == {}", *module.bitRate));
  } else {
    log.standardOutput("No SFP connect \n");
  }
}

/// A firmware image in memory, followed by one zero byte.
struct FirmwareImage {
  std::unique_ptr<uint8_t[]> bytes;  ///< null when memory ran out
  size_t length = 0;

  const char* text() const { return reinterpret_cast<const char*>(bytes.get()); }
};

OpenFile openImageWithRetries(const std::string& path, Dispatch& dispatch, Log& log) {
  constexpr int attempts = 3;
  constexpr std::chrono::seconds pause{1};
  for (int attempt = 0; attempt < attempts; ++attempt) {
    if (OpenFile file = openFirmwareImage(path)) return file;
    dispatch.sleepBesideMain(pause);
    log.standardOutput("open ELX FW file fail\n");
  }
  return nullptr;
}

size_t fileLength(std::FILE* file) {
  std::fseek(file, 0, SEEK_END);
  const long end = std::ftell(file);
  std::fseek(file, 0, SEEK_SET);
  return static_cast<size_t>(std::max(end, 0L));
}

// The buffer is all zeros before the read, so what a short read leaves out is zero.
FirmwareImage readImage(std::FILE* file, Log& log) {
  FirmwareImage image;
  image.length = fileLength(file);
  log.standardOutput(fmt::format("elx fw size {}\n", image.length));
  image.bytes.reset(new (std::nothrow) uint8_t[image.length + 1]());
  if (image.bytes) {
    [[maybe_unused]] const size_t read = std::fread(image.bytes.get(), 1, image.length, file);
  }
  return image;
}

Status handOver(const FirmwareImage& image, DriverConnection& connection, Log& log) {
  std::array<uint8_t, FwImageStruct::size> input{};
  std::array<uint8_t, FwImageStruct::size> output{};
  log.standardOutput(fmt::format("TestUpdateELXFWUserClient: structureOutputSize = {}(Byte)\n",
                                 FwImageStruct::size));
  putNumber(input, FwImageStruct::imageSize, image.length);
  putNumber(input, FwImageStruct::bufferAddress, reinterpret_cast<uintptr_t>(image.bytes.get()));
  log.standardOutput(fmt::format("FWSize={}, buffer address={}\n",
                                 static_cast<uint32_t>(image.length), image.text()));
  return connection.call(FibreChannelSelector::TransferFirmwareImage, input, output);
}

}  // namespace

CorvaneAPI::CorvaneAPI(UserClient& userClient, Dispatch& dispatch, Log& log)
    : userClient_(userClient), dispatch_(dispatch), log_(log) {}

void CorvaneAPI::GetCorvaneInfoFunction(RegistryHandle service, Status* driverStatus) {
  const std::array<uint8_t, PortInfoStruct::size> input{};
  std::array<uint8_t, PortInfoStruct::size> output{};
  const Status answered = DriverConnection(userClient_, service)
                              .call(FibreChannelSelector::ReadPortInformation, input, output);
  if (driverStatus != nullptr) *driverStatus = answered;

  const StructureReader reply(output);
  pcivendor = reply.number(PortInfoStruct::pciVendor);
  pcidevice = deviceText(reply.number(PortInfoStruct::pciDevice));
  WWNN = worldWideName(reply.bytes(PortInfoStruct::nodeName));
  WWPN = worldWideName(reply.bytes(PortInfoStruct::portName));
  fwVer = reply.text(PortInfoStruct::firmwareVersion);
  linkState = reply.number(PortInfoStruct::linkState);
  portSpeed = foldedSpeed(reply.number(PortInfoStruct::currentSpeed));
  portTopology = reply.number(PortInfoStruct::currentTopology);
  hard_alpa = reply.number(PortInfoStruct::hardAlpa);
  settingSpeed = foldedSpeed(reply.number(PortInfoStruct::configuredSpeed));
  settingTopology = reply.number(PortInfoStruct::configuredTopology);
  queueDepth = foldedQueueDepth(reply.number(PortInfoStruct::queueDepth));
}

int64_t CorvaneAPI::GetCorvaneSFP(RegistryHandle service, uint32_t selectPort,
                                  TransceiverReply* reply) {
  const auto input = request<SfpInfoStruct>(SfpInfoStruct::portIndex, selectPort);
  std::array<uint8_t, SfpInfoStruct::size> output{};
  const Status answered = DriverConnection(userClient_, service)
                              .call(FibreChannelSelector::ReadTransceiver, input, output);
  if (reply != nullptr) {
    reply->status = answered;
    std::copy_n(output.begin(), reply->eeprom.size(), reply->eeprom.begin());
  }
  const SFPDescription module = decodeSFP(output);
  logModule(module, log_);
  takeModule(module);
  return static_cast<int64_t>(module.result);
}

// A text that the module did not tell keeps what the property held before.
void CorvaneAPI::takeModule(const SFPDescription& module) {
  const auto take = [](std::optional<std::string>& property,
                       const std::optional<std::string>& text) {
    if (text) property = text;
  };
  take(Transceiver, module.Transceiver);
  take(Connector, module.Connector);
  take(TransceiverCode, module.TransceiverCode);
  take(SerialEncoding, module.SerialEncoding);
  take(Bitrate, module.Bitrate);
  take(VendorName, module.VendorName);
  take(VendorOUI, module.VendorOUI);
  take(VendorPN, module.VendorPN);
  take(VendorRev, module.VendorRev);
  take(VendorSN, module.VendorSN);
  take(ManuData, module.ManuData);
}

int64_t CorvaneAPI::setTopologyFunction(RegistryHandle service, uint64_t topology,
                                        Status* driverStatus) const {
  const auto input = request<TopologyStruct>(TopologyStruct::topology, topology);
  DriverConnection connection(userClient_, service);
  return applySetting(connection, FibreChannelSelector::SetTopology, input, log_, driverStatus);
}

int64_t CorvaneAPI::setSpeedFunction(RegistryHandle service, uint64_t speed,
                                     Status* driverStatus) const {
  const auto input = request<SpeedStruct>(SpeedStruct::speed, speed);
  DriverConnection connection(userClient_, service);
  return applySetting(connection, FibreChannelSelector::SetSpeed, input, log_, driverStatus);
}

int64_t CorvaneAPI::setHardAlpaFunction(RegistryHandle service, uint64_t alpa,
                                        Status* driverStatus) const {
  const auto input = request<HardAlpaStruct>(HardAlpaStruct::hardAlpa, alpa);
  DriverConnection connection(userClient_, service);
  return applySetting(connection, FibreChannelSelector::SetHardAlpa, input, log_, driverStatus);
}

int64_t CorvaneAPI::set_queue_depth(RegistryHandle service, uint32_t depth,
                                    Status* driverStatus) const {
  const auto input = request<QueueDepthStruct>(QueueDepthStruct::queueDepth, depth);
  DriverConnection connection(userClient_, service);
  if (connection.opened() != statusSuccess) {
    // The place that support knows this assertion by, whatever the source looks like.
    constexpr int reportedLine = 435;
    log_.assertionFailed("KERN_SUCCESS == kr", "set_queue_depth:qDepth:", "CorvaneAPI",
                         reportedLine);
  }
  return applySetting(connection, FibreChannelSelector::SetQueueDepth, input, log_, driverStatus);
}

int64_t CorvaneAPI::UpgradeELXFWUserClient(RegistryHandle service, const std::string& path,
                                           Status* driverStatus) const {
  OpenFile file = openImageWithRetries(path, dispatch_, log_);
  if (!file) return failed;
  log_.standardOutput("open ELX FW file success\n");
  const FirmwareImage image = readImage(file.get(), log_);
  file.reset();
  if (!image.bytes) {
    log_.standardError("Memory error!");
    return failed;
  }
  log_.standardOutput(fmt::format("buffer address {}\n", image.text()));
  DriverConnection connection(userClient_, service);
  const Status answered = handOver(image, connection, log_);
  if (driverStatus) *driverStatus = answered;
  return succeeded;
}

}  // namespace corvane
