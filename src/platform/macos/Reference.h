#pragma once

#include <utility>

namespace corvane::macos {

/// Owns one reference to a reference-counted object of a C interface and gives it back exactly
/// once. `Counting` has the static functions retain(Object) and release(Object).
template <typename Object, typename Counting>
class Reference {
 public:
  Reference() = default;

  /// Takes over the reference that a function named Create or Copy gave out.
  explicit Reference(Object owned) : object_(owned) {}

  /// Adds a reference to an object that somebody else owns.
  static Reference retaining(Object object) {
    if (object != nullptr) Counting::retain(object);
    return Reference(object);
  }

  Reference(Reference&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}

  Reference& operator=(Reference&& other) noexcept {
    Reference taken(std::move(other));
    std::swap(object_, taken.object_);
    return *this;
  }

  Reference(const Reference&) = delete;
  Reference& operator=(const Reference&) = delete;

  ~Reference() {
    if (object_ != nullptr) Counting::release(object_);
  }

  Object get() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

  /// Gives the reference away: the receiver releases it.
  [[nodiscard]] Object release() { return std::exchange(object_, nullptr); }

 private:
  Object object_ = nullptr;
};

}  // namespace corvane::macos
