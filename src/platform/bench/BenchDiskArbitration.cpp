#include "platform/bench/BenchDiskArbitration.h"

#include <algorithm>

#include "platform/bench/tree/RegistryMatching.h"

namespace corvane {

namespace {

class BenchDiskObject final : public Disk {
 public:
  explicit BenchDiskObject(std::string name) : name_(std::move(name)) {}

  std::optional<std::string> bsdName() const override { return name_; }
  const std::string& name() const { return name_; }

 private:
  const std::string name_;
};

/// The disks and partitions that the computer sees: those of its registry.
std::set<std::string> presentDisks(const BenchState& state) {
  std::set<std::string> names;
  const auto root = buildRegistryTree(state);
  for (const RegistryTreeEntry* entry : inTreeOrder(*root)) {
    if (entry->className != "IOMedia") continue;
    names.insert(*findProperty(entry->properties, "BSD Name")->text());
  }
  return names;
}

/// Where the state keeps whether a disk or partition is mounted; null when there is none.
bool* findMounted(BenchState& state, const std::string& name) {
  for (BenchDisk& disk : state.disks) {
    if (disk.name == name) return &disk.mounted;
    for (BenchPartition& partition : disk.partitions) {
      if (partition.name == name) return &partition.mounted;
    }
  }
  return nullptr;
}

}  // namespace

class BenchDiskArbitration::Session final : public DiskSession {
 public:
  explicit Session(BenchDiskArbitration& owner) : owner_(owner) { owner_.add(*this); }

  ~Session() override {
    owner_.remove(*this);
    source_->invalidate();
  }

  void registerAppeared(DiskCallback callback, void* context) override {
    appeared_ = {callback, context};
  }

  void registerDisappeared(DiskCallback callback, void* context) override {
    disappeared_ = {callback, context};
  }

  void schedule(RunLoop& runLoop) override {
    const std::lock_guard guard(owner_.mutex_);
    isScheduled_ = true;
    runLoop.addSource(source_);
    for (const std::string& name : owner_.present_) tell(appeared_, name);
  }

  void unschedule(RunLoop&) override {
    {
      const std::lock_guard guard(owner_.mutex_);
      isScheduled_ = false;
    }
    source_->invalidate();
  }

  std::unique_ptr<Disk> createDisk(const std::string& bsdName) override {
    return bsdName.empty() ? nullptr : std::make_unique<BenchDiskObject>(bsdName);
  }

  void unmount(Disk& disk, DiskRequestCallback callback, void* context) override {
    answer(disk, callback, context, setMounted(disk, false, "unmount-refused"));
  }

  void mount(Disk& disk, DiskRequestCallback callback, void* context) override {
    answer(disk, callback, context, setMounted(disk, true, "mount-refused"));
  }

  void tellChanges(const std::set<std::string>& gone, const std::set<std::string>& come) {
    if (!isScheduled_) return;
    for (const std::string& name : gone) tell(disappeared_, name);
    for (const std::string& name : come) tell(appeared_, name);
  }

 private:
  struct Registered {
    DiskCallback callback = nullptr;
    void* context = nullptr;
  };

  void tell(const Registered& registered, const std::string& name) {
    if (registered.callback == nullptr) return;
    source_->post([registered, name] {
      BenchDiskObject disk(name);
      registered.callback(disk, registered.context);
    });
  }

  bool setMounted(Disk& disk, bool mounted, const char* fault) {
    const std::string name = disk.bsdName().value_or("");
    const auto state = owner_.machine_.state();
    if (state->hasFault(fault) || presentDisks(*state).count(name) == 0) return false;
    bool isKnown = false;
    const bool isWritten = owner_.machine_.update([&](BenchState& changed) {
      bool* found = findMounted(changed, name);
      isKnown = found != nullptr;
      if (isKnown) *found = mounted;
    });
    return isWritten && isKnown;
  }

  void answer(Disk& disk, DiskRequestCallback callback, void* context, bool isDone) {
    const std::lock_guard guard(owner_.mutex_);
    if (callback == nullptr || !isScheduled_) return;
    source_->post([callback, context, isDone, name = disk.bsdName().value_or("")] {
      BenchDiskObject object(name);
      callback(object, !isDone, context);
    });
  }

  BenchDiskArbitration& owner_;
  const std::shared_ptr<QueuedRunLoopSource> source_ = std::make_shared<QueuedRunLoopSource>();
  Registered appeared_;
  Registered disappeared_;
  bool isScheduled_ = false;  ///< guarded by the owner's mutex
};

BenchDiskArbitration::BenchDiskArbitration(BenchMachine& machine)
    : machine_(machine), present_(presentDisks(*machine.state())) {
  machine.observe([this](const BenchState& state) { follow(state); });
}

std::unique_ptr<DiskSession> BenchDiskArbitration::createSession() {
  return std::make_unique<Session>(*this);
}

void BenchDiskArbitration::follow(const BenchState& state) {
  std::set<std::string> now = presentDisks(state);
  const std::lock_guard guard(mutex_);
  std::set<std::string> gone;
  std::set<std::string> come;
  std::set_difference(present_.begin(), present_.end(), now.begin(), now.end(),
                      std::inserter(gone, gone.end()));
  std::set_difference(now.begin(), now.end(), present_.begin(), present_.end(),
                      std::inserter(come, come.end()));
  present_ = std::move(now);
  for (Session* session : sessions_) session->tellChanges(gone, come);
}

void BenchDiskArbitration::add(Session& session) {
  const std::lock_guard guard(mutex_);
  sessions_.insert(&session);
}

void BenchDiskArbitration::remove(Session& session) {
  const std::lock_guard guard(mutex_);
  sessions_.erase(&session);
}

}  // namespace corvane
