#include "macos/standin/MacSystem.h"

#include <cstdio>
#include <cstdlib>

#include "macos/standin/SystemState.h"

namespace corvane::standin {

namespace {

std::atomic<MacSystem::State*> currentSystem{nullptr};

uint64_t nextSystemNumber() {
  static std::atomic<uint64_t> last{0};
  return ++last;
}

void addHeld(std::string& text, size_t count, const std::string& kind) {
  if (count == 0) return;
  if (!text.empty()) text += ", ";
  text += std::to_string(count) + " " + kind;
}

size_t sum(const std::map<std::string, size_t>& counts) {
  size_t all = 0;
  for (const auto& [name, count] : counts) all += count;
  return all;
}

}  // namespace

bool Object::release() {
  int references = references_;
  do {
    if (references == 0) return false;
  } while (!references_.compare_exchange_weak(references, references - 1));
  if (references == 1) drop();
  return true;
}

MacSystem::State::State(const Platform& thePlatform, MacSystemOptions theOptions)
    : platform(thePlatform), options(std::move(theOptions)), number(nextSystemNumber()) {}

MacSystem::MacSystem(const Platform& platform, MacSystemOptions options)
    : state_(std::make_unique<State>(platform, std::move(options))) {
  currentSystem = state_.get();
}

MacSystem::~MacSystem() {
  currentSystem = nullptr;
}

void MacSystem::fail(const std::string& call, int successes) {
  const std::lock_guard lock(state_->mutex);
  state_->failing[call] = successes;
}

void MacSystem::mend(const std::string& call) {
  const std::lock_guard lock(state_->mutex);
  state_->failing.erase(call);
}

size_t MacSystem::calls(const std::string& call) const {
  const std::lock_guard lock(state_->mutex);
  const auto found = state_->calls.find(call);
  return found == state_->calls.end() ? 0 : found->second;
}

size_t MacSystem::calls() const {
  const std::lock_guard lock(state_->mutex);
  return sum(state_->calls);
}

std::string MacSystem::held() const {
  const std::lock_guard lock(state_->mutex);
  std::map<std::string, size_t> objects;
  for (const auto& object : state_->objects) {
    if (object->isHeld()) ++objects[object->kind()];
  }
  std::string text;
  addHeld(text, state_->handles.size() - state_->iterators.size(), "registry handle");
  addHeld(text, state_->iterators.size(), "iterator");
  addHeld(text, state_->connections.size(), "connection");
  for (const auto& [kind, count] : objects) addHeld(text, count, kind);
  return text;
}

size_t MacSystem::given() const {
  const std::lock_guard lock(state_->mutex);
  return state_->given;
}

std::vector<std::string> MacSystem::misuses() const {
  const std::lock_guard lock(state_->mutex);
  return state_->misuses;
}

MacSystem::State& macSystem() {
  MacSystem::State* const current = currentSystem;
  if (current != nullptr) return *current;
  std::fputs("a call of the Mac's system before it began or after it ended\n", stderr);
  std::abort();
}

bool isToFail(const char* call) {
  const std::lock_guard lock(macSystem().mutex);
  ++macSystem().calls[call];
  const auto found = macSystem().failing.find(call);
  if (found == macSystem().failing.end()) return false;
  return found->second-- <= 0;
}

void noteMisuse(const std::string& what) {
  const std::lock_guard lock(macSystem().mutex);
  macSystem().misuses.push_back(what);
}

bool isThere(const Object* object, const char* call) {
  if (object == nullptr) {
    noteMisuse(std::string(call) + " of nothing");
    return false;
  }
  if (!object->isGone()) return true;
  noteMisuse(std::string(call) + " of a " + object->kind() + " that is gone");
  return false;
}

void releaseObject(Object* object, const char* call) {
  if (isThere(object, call) && !object->release()) {
    noteMisuse(std::string(call) + " of a " + object->kind() + " that is gone");
  }
}

}  // namespace corvane::standin
