#pragma once

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

namespace corvane {

/// An adapter record: two port records that belong together, told apart by a key.
///
/// `Port` offers key() (null while it is unset), hasKeyOf(other), identity() (what its adapter is
/// known by), portService() and clearService(). Any thread may use a record; every operation holds
/// its lock. Whoever needs several of them to be one step holds lock() meanwhile.
template <typename Port>
class PairedPorts {
 public:
  /// Offers a port. It is taken into a free slot, unless the other slot holds one with its key; the
  /// ports are kept in plain text order of their keys. Returns whether it was taken.
  bool setPort(std::shared_ptr<Port> port) {
    const auto held = lock();
    const bool taken = place(std::move(port));
    if (!identity_ && port1_) identity_ = port1_->identity();
    if (taken) sort();
    return taken;
  }

  /// Swaps the ports when the first one's key is the greater.
  void sort() {
    const auto held = lock();
    if (!port1_ || !port2_ || port1_->key() == nullptr || port2_->key() == nullptr) return;
    if (*port1_->key() > *port2_->key()) std::swap(port1_, port2_);
  }

  /// Whether neither port has a registry service any more.
  bool isEmpty() const {
    const auto held = lock();
    return !hasService(port1_) && !hasService(port2_);
  }

  /// Releases the service of the port with that key; the port stays in its slot. Returns whether
  /// there is such a port.
  bool clearPort(const std::string& key) {
    const auto held = lock();
    for (const auto& port : {port1_, port2_}) {
      if (!port || port->key() == nullptr || *port->key() != key) continue;
      port->clearService();
      return true;
    }
    return false;
  }

  /// Releases both services and empties both slots.
  void clearAll() {
    const auto held = lock();
    for (auto* port : {&port1_, &port2_}) {
      if (*port) (*port)->clearService();
      port->reset();
    }
  }

  /// Null when the slot is empty.
  std::shared_ptr<Port> port1() const {
    const auto held = lock();
    return port1_;
  }
  std::shared_ptr<Port> port2() const {
    const auto held = lock();
    return port2_;
  }

  /// The identity of the first port that was taken. Unset before.
  std::optional<std::string> identity() const {
    const auto held = lock();
    return identity_;
  }

  /// Whether the port with that port's key is there by another service: the adapter was plugged in
  /// again before its former self's departure was told.
  bool holdsSuccessorOf(const Port& port) const {
    const auto held = lock();
    for (const auto& each : {port1_, port2_}) {
      if (!hasService(each) || !each->key() || !port.key() || *each->key() != *port.key()) continue;
      if (each->portService() != port.portService()) return true;
    }
    return false;
  }

  /// The record's lock. The same thread may hold it several times.
  [[nodiscard]] std::unique_lock<std::recursive_mutex> lock() const {
    return std::unique_lock(mutex_);
  }

 private:
  bool place(std::shared_ptr<Port> port) {
    if (!port1_) return placeUnlessKnown(port1_, port2_, std::move(port));
    if (!port2_) return placeUnlessKnown(port2_, port1_, std::move(port));
    return false;
  }

  static bool placeUnlessKnown(std::shared_ptr<Port>& slot, const std::shared_ptr<Port>& other,
                               std::shared_ptr<Port> port) {
    if (other && port->hasKeyOf(*other)) return false;
    slot = std::move(port);
    return true;
  }

  static bool hasService(const std::shared_ptr<Port>& port) {
    return port && port->portService() != 0;
  }

  mutable std::recursive_mutex mutex_;  ///< guards everything below
  std::shared_ptr<Port> port1_;
  std::shared_ptr<Port> port2_;
  std::optional<std::string> identity_;
};

}  // namespace corvane
