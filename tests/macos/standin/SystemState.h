#pragma once

#include <atomic>
#include <cstdint>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <utility>

#include "macos/standin/MacSystem.h"

namespace corvane::standin {

/// Something counted by references. Its memory stays until the system goes, so that a use of one
/// that has gone is noticed.
class Object {
 public:
  explicit Object(const char* kind) : kind_(kind) {}
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  virtual ~Object() = default;

  const char* kind() const { return kind_; }
  bool isGone() const { return references_ == 0; }

  /// Whether somebody besides the system itself has a reference.
  bool isHeld() const { return references_ > (isTheSystemsOwn_ ? 1 : 0); }

  /// The reference that the object is made with is the system's, as with a thread's run loop.
  void becomeTheSystemsOwn() { isTheSystemsOwn_ = true; }

  void retain() { ++references_; }

  /// False when there was no reference left.
  bool release();

 protected:
  /// Lets go of what the object holds, once its last reference has gone.
  virtual void drop() {}

 private:
  const char* const kind_;
  std::atomic<int> references_{1};
  std::atomic<bool> isTheSystemsOwn_{false};
};

struct MacSystem::State {
  State(const Platform& thePlatform, MacSystemOptions theOptions);

  const Platform platform;
  const MacSystemOptions options;
  const uint64_t number;  ///< no other system of this process has it

  mutable std::mutex mutex;  ///< guards everything below
  std::map<std::string, size_t> calls;
  std::map<std::string, int> failing;  ///< with the successes that are left
  std::vector<std::string> misuses;
  std::vector<std::unique_ptr<Object>> objects;
  std::map<uint32_t, int> handles;  ///< of the registry, with their references
  std::set<uint32_t> iterators;     ///< those of the handles that are one
  std::set<uint32_t> connections;
  size_t given = 0;
};

/// The system that is there now. A call without one ends the program.
MacSystem::State& macSystem();

/// Counts a call; whether it is to fail.
bool isToFail(const char* call);

void noteMisuse(const std::string& what);

/// A new object with one reference, which the caller gives out.
template <typename Kind, typename... Arguments>
Kind* makeObject(Arguments&&... arguments) {
  auto made = std::make_unique<Kind>(std::forward<Arguments>(arguments)...);
  Kind* const object = made.get();
  const std::lock_guard lock(macSystem().mutex);
  macSystem().objects.push_back(std::move(made));
  ++macSystem().given;
  return object;
}

/// Notes a misuse unless the object is there; whether it is.
bool isThere(const Object* object, const char* call);

void releaseObject(Object* object, const char* call);

}  // namespace corvane::standin
