#include "inventory/AdapterReader.h"

namespace corvane {

namespace {

Answer<std::string> versionOf(const InstalledDriver& driver, ReadingSource source) {
  if (driver.version()) return *driver.version();
  if (source == ReadingSource::Dump) return Reason::NotInDump;
  if (driver.bundlePath()) return std::string();
  return Reason::Missing;
}

/// Both ports of an adapter, each read by `read`; one that has gone keeps an empty reading.
template <typename Reading, typename Read>
std::array<Reading, 2> bothPorts(const DeviceListEntry& adapter, Read read) {
  std::array<Reading, 2> ports;
  for (const int64_t number : {1, 2}) {
    Reading& reading = ports[static_cast<size_t>(number - 1)];
    const auto target = PortTarget::of(adapter, number);
    if (target) {
      reading = read(*target);
    } else {
      reading.port = number;
    }
  }
  return ports;
}

}  // namespace

AdapterReader::AdapterReader(const Platform& platform, ReadingSource source)
    : platform_(platform),
      source_(source),
      command_(platform.shell, platform.paths),
      presets_(platform.shell, platform.paths),
      tenGigabit_(command_, presets_) {}

template <typename FibreChannel, typename TenGigabit>
AdapterReading AdapterReader::readWith(const DeviceListEntry& adapter, FibreChannel fibreChannel,
                                       TenGigabit tenGigabit) {
  AdapterReading reading;
  reading.label = adapter.Sequence;
  reading.WWN = adapter.WWN;
  reading.product = adapter.ProductType;
  reading.image = adapter.image;
  reading.pcidebug = adapter.pcidebug;
  reading.driverVersion = versionOf(InstalledDriver(platform_, adapter.family()), source_);
  if (adapter.family() == AdapterFamily::FibreChannel) {
    reading.ports = bothPorts<FibreChannelPortReading>(adapter, fibreChannel);
  } else {
    reading.ports = bothPorts<TenGigabitPortReading>(adapter, tenGigabit);
  }
  reading.readAt = std::chrono::system_clock::now();
  return reading;
}

AdapterReading AdapterReader::read(const DeviceListEntry& adapter) {
  return readWith(
      adapter, [this](const PortTarget& port) { return readFibreChannel(port); },
      [this](const PortTarget& port) { return readTenGigabit(port); });
}

AdapterReading AdapterReader::readPort(const PortTarget& wanted) {
  const auto only = [&wanted](const auto& read) {
    return [&wanted, read](const PortTarget& port) {
      using Reading = decltype(read(port));
      if (port.port() == wanted.port()) return read(wanted);
      Reading unasked;
      unasked.port = port.port();
      return unasked;
    };
  };
  return readWith(wanted.adapter(),
                  only([this](const PortTarget& port) { return readFibreChannel(port); }),
                  only([this](const PortTarget& port) { return readTenGigabit(port); }));
}

AdapterReading AdapterReader::readLinks(const DeviceListEntry& adapter) {
  if (source_ == ReadingSource::Dump) return read(adapter);
  return readWith(
      adapter,
      [](const PortTarget& port) {
        FibreChannelPortReading reading;
        reading.port = port.port();
        reading.information = readInformation(port.api(), port.service());
        return reading;
      },
      [this](const PortTarget& port) { return tenGigabit_.readLink(port, unaskedPort(port)); });
}

FibreChannelPortReading AdapterReader::readFibreChannel(const PortTarget& port) {
  if (source_ == ReadingSource::Dump) return dumpedFibreChannelPort(port);
  return readFibreChannelPort(port, fitness(port.family()));
}

TenGigabitPortReading AdapterReader::readTenGigabit(const PortTarget& port) {
  if (source_ == ReadingSource::Dump) return dumpedTenGigabitPort(port);
  return tenGigabit_.read(port, fitness(port.family()));
}

int64_t AdapterReader::fitness(AdapterFamily family) const {
  return InstalledDriver(platform_, family).fitness();
}

}  // namespace corvane
