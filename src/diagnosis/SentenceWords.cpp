#include "diagnosis/SentenceWords.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "fibre_channel/TransceiverWords.h"

namespace corvane {

std::string listed(const std::vector<std::string>& words) {
  return fmt::format("{}", fmt::join(words, ", "));
}

std::string speedWords(uint64_t megabits) {
  constexpr uint64_t gigabit = 1000;
  if (megabits == speedAutomatic || megabits == speedAutomaticOf16G) return "automatic";
  if (megabits % gigabit != 0) return fmt::format("{} Mb/s", megabits);
  return fmt::format("{} Gbps", megabits / gigabit);
}

std::string speedListWords(const std::vector<uint64_t>& speeds) {
  std::vector<std::string> words;
  words.reserve(speeds.size());
  for (const uint64_t speed : speeds) words.push_back(speedWords(speed));
  return listed(words);
}

std::string topologyWords(uint64_t topology) {
  if (topology == topologyPointToPoint) return "point to point";
  if (topology == topologyArbitratedLoop) return "Arbitrated Loop";
  return fmt::format("{}", topology);
}

std::string familyWords(AdapterFamily family) {
  return family == AdapterFamily::FibreChannel ? "Fibre Channel" : "10GbE";
}

std::string placeWords(const Look& look, const Place& place) {
  const std::string& label = place.isListed ? look.reading().adapters.at(place.adapter).label
                                            : look.reading().unlisted.at(place.adapter).label;
  return place.port == 0 ? label : fmt::format("{} port {}", label, place.port);
}

std::string placesWords(const Look& look, const std::vector<Place>& places) {
  std::vector<std::string> words;
  words.reserve(places.size());
  for (const Place& place : places) words.push_back(placeWords(look, place));
  return listed(words);
}

std::string dateOf(ReadingTime time) {
  constexpr size_t dateLength = 10;
  return utcText(time).substr(0, dateLength);
}

std::string byteWords(uint64_t byte) {
  return fmt::format("{:02X}", byte);
}

std::string neededWords(const PortFacts& port) {
  if (!port.isFibreChannel()) return "10G optical";
  if (port.offeredSpeeds().empty()) return "Fibre Channel";
  return speedsWords(port.offeredSpeeds());
}

std::string moduleWords(const PortFacts& port) {
  if (!port.transceiver()) return port.moduleName();
  const std::string name = transceiverName(*port.transceiver());
  return name.empty() ? transceiverSummary(*port.transceiver()) : name;
}

std::string counted(size_t number, std::string_view noun) {
  return fmt::format("{} {}{}", number, noun, number == 1 ? "" : "s");
}

}  // namespace corvane
