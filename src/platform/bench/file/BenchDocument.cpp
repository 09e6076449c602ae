#include "platform/bench/file/BenchDocument.h"

#include <nlohmann/json.hpp>

namespace corvane {

namespace {

using Json = nlohmann::ordered_json;

// One list of fields for each kind of object serves reading and writing alike. Each list is a
// template over a reader, which fills the fields that the document has, and a writer.

template <typename Fields>
void describe(Fields& fields, BenchPartner& partner) {
  fields.member("speeds", partner.speeds);
  fields.member("topology", partner.topology);
}

template <typename Fields>
void describe(Fields& fields, BenchTransceiver& transceiver) {
  fields.text("file", transceiver.file);
  fields.text("hex", transceiver.hex);
}

template <typename Fields>
void describe(Fields& fields, BenchFibreChannelPort& port) {
  fields.text("note", port.note);
  fields.member("wwpn", port.wwpn);
  fields.member("link", port.link);
  fields.member("partner", port.partner);
  fields.member("speed", port.speed);
  fields.member("topology", port.topology);
  fields.member("hardAlpa", port.hardAlpa);
  fields.member("queueDepth", port.queueDepth);
  fields.memberUnless("transceiver", port.transceiver, BenchTransceiver{});
  fields.memberUnless("linkReturnsAt", port.linkReturnsAt, int64_t{0});
}

template <typename Fields>
void describe(Fields& fields, BenchEthernetPort& port) {
  fields.text("note", port.note);
  fields.member("interface", port.interface);
  fields.member("mac", port.mac);
  fields.member("enabled", port.enabled);
  fields.member("link", port.link);
  fields.member("media", port.media);
  fields.member("mtu", port.mtu);
  fields.text("module", port.module);
  fields.member("settings", port.settings);
  fields.member("savedSettings", port.savedSettings);
}

template <typename Fields>
void describe(Fields& fields, BenchAdapter& adapter) {
  fields.text("note", adapter.note);
  fields.member("product", adapter.product);
  fields.member("attached", adapter.attached);
  fields.memberUnless("timesPlugged", adapter.timesPlugged, int64_t{0});
  fields.member("bridge", adapter.bridge);
  fields.member("hop", adapter.hop);
  fields.text("nodeWWN", adapter.nodeWWN);
  fields.text("firmware", adapter.firmware);
  fields.member("pendingFirmware", adapter.pendingFirmware);
  fields.ports("ports", adapter);
}

template <typename Fields>
void describe(Fields& fields, BenchPartition& partition) {
  fields.member("name", partition.name);
  fields.member("mounted", partition.mounted);
}

template <typename Fields>
void describe(Fields& fields, BenchDisk& disk) {
  fields.text("note", disk.note);
  fields.member("name", disk.name);
  fields.member("port", disk.port);
  fields.member("bus", disk.bus);
  fields.member("mounted", disk.mounted);
  fields.member("partitions", disk.partitions);
}

template <typename Fields>
void describe(Fields& fields, BenchNetworkInterface& interface) {
  fields.text("note", interface.note);
  fields.member("name", interface.name);
  fields.member("mac", interface.mac);
  fields.member("kind", interface.kind);
  fields.member("link", interface.link);
  fields.text("media", interface.media);
  fields.member("mtu", interface.mtu);
}

template <typename Fields>
void describe(Fields& fields, BenchThunderboltDevice& device) {
  fields.text("note", device.note);
  fields.member("name", device.name);
  fields.member("bridge", device.bridge);
  fields.member("hop", device.hop);
  fields.member("vendorID", device.vendorID);
  fields.member("modelID", device.modelID);
}

template <typename Fields>
void describe(Fields& fields, BenchComputer& computer) {
  fields.member("model", computer.model);
  fields.member("osVersion", computer.osVersion);
}

template <typename Fields>
void describe(Fields& fields, BenchApplication& application) {
  fields.member("version", application.version);
  fields.member("copyright", application.copyright);
  fields.member("plistURL", application.plistURL);
}

template <typename Fields>
void describe(Fields& fields, BenchState& state) {
  fields.text("note", state.note);
  fields.member("clockRate", state.clockRate);
  fields.member("computer", state.computer);
  fields.member("application", state.application);
  fields.member("drivers", state.drivers);
  fields.member("adapters", state.adapters);
  fields.member("disks", state.disks);
  fields.member("networkInterfaces", state.networkInterfaces);
  fields.member("thunderboltDevices", state.thunderboltDevices);
  fields.flags("faults", state.faults);
}

class Reader;
class Writer;

template <typename Value>
concept Described = requires(Reader& reader, Value& value) {
  describe(reader, value);
};

constexpr const char* topologyName(BenchTopology topology) {
  return topology == BenchTopology::PointToPoint ? "point-to-point" : "arbitrated-loop";
}

constexpr const char* anyTopologyName = "any";

/// Fills the fields that the document has; the others keep their value.
class Reader {
 public:
  explicit Reader(const Json& object) : object_(object) {}

  template <typename Value>
  void member(const char* key, Value& value) {
    if (const auto found = object_.find(key); found != object_.end()) read(*found, value);
  }

  template <typename Value>
  void memberUnless(const char* key, Value& value, const Value&) {
    member(key, value);
  }

  void text(const char* key, std::string& value) { member(key, value); }

  void ports(const char* key, BenchAdapter& adapter) {
    if (object_.contains("nodeWWN")) {
      member(key, adapter.fibreChannelPorts);
    } else {
      member(key, adapter.ethernetPorts);
    }
  }

  void flags(const char* key, std::set<std::string>& names) {
    const auto found = object_.find(key);
    if (found == object_.end()) return;
    for (const auto& [name, on] : found->items()) {
      if (on.get<bool>()) names.insert(name);
    }
  }

 private:
  template <typename Value>
  static void read(const Json& json, Value& value) {
    if constexpr (Described<Value>) {
      Reader reader(json);
      describe(reader, value);
    } else {
      value = json.get<Value>();
    }
  }

  template <typename Value>
  static void read(const Json& json, std::vector<Value>& values) {
    values.clear();
    for (const Json& item : json) read(item, values.emplace_back());
  }

  template <typename Value>
  static void read(const Json& json, std::optional<Value>& value) {
    read(json, value.emplace());
  }

  template <typename Value>
  static void read(const Json& json, std::map<std::string, Value>& values) {
    values.clear();
    for (const auto& [key, item] : json.items()) values[key] = item.template get<Value>();
  }

  static void read(const Json& json, BenchTopology& topology) {
    topology = json == topologyName(BenchTopology::ArbitratedLoop) ? BenchTopology::ArbitratedLoop
                                                                   : BenchTopology::PointToPoint;
  }

  static void read(const Json& json, std::optional<BenchTopology>& topology) {
    topology.reset();
    if (json != anyTopologyName) read(json, topology.emplace());
  }

  const Json& object_;
};

class Writer {
 public:
  explicit Writer(Json& object) : object_(object) {}

  template <typename Value>
  void member(const char* key, Value& value) {
    object_[key] = written(value);
  }

  template <typename Value>
  void member(const char* key, std::optional<Value>& value) {
    if (value) object_[key] = written(*value);
  }

  void member(const char* key, std::optional<BenchTopology>& topology) {
    object_[key] = topology ? topologyName(*topology) : anyTopologyName;
  }

  template <typename Value>
  void memberUnless(const char* key, Value& value, const Value& absent) {
    if (value != absent) member(key, value);
  }

  void text(const char* key, std::string& value) { memberUnless(key, value, std::string()); }

  void ports(const char* key, BenchAdapter& adapter) {
    if (adapter.nodeWWN.empty()) {
      member(key, adapter.ethernetPorts);
    } else {
      member(key, adapter.fibreChannelPorts);
    }
  }

  void flags(const char* key, std::set<std::string>& names) {
    Json& flags = object_[key] = Json::object();
    for (const std::string& name : names) flags[name] = true;
  }

 private:
  template <typename Value>
  static Json written(Value& value) {
    if constexpr (Described<Value>) {
      Json object = Json::object();
      Writer writer(object);
      describe(writer, value);
      return object;
    } else {
      return value;
    }
  }

  template <typename Value>
  static Json written(std::vector<Value>& values) {
    Json array = Json::array();
    for (Value& value : values) array.push_back(written(value));
    return array;
  }

  static Json written(BenchTopology& topology) { return topologyName(topology); }

  Json& object_;
};

}  // namespace

BenchState benchStateOf(const BenchDocument& document) {
  BenchState state;
  Reader reader(document);
  describe(reader, state);
  return state;
}

BenchDocument benchDocumentOf(const BenchState& state) {
  BenchState written = state;
  Json document = Json::object();
  Writer writer(document);
  describe(writer, written);
  return document;
}

std::string benchDocumentText(const BenchDocument& document) {
  return document.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace corvane
