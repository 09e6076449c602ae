#include "platform/posix/LocalNotificationCenter.h"

#include <algorithm>
#include <condition_variable>
#include <iterator>
#include <thread>
#include <utility>

namespace corvane {

/// One registration: whom to call, and who is calling it now.
class LocalNotificationCenter::Observer {
 public:
  Observer(std::string name, std::function<void(const Notification&)> function)
      : name_(std::move(name)), function_(std::move(function)) {}

  const std::string& name() const { return name_; }

  void call(const Notification& notification) {
    {
      const std::lock_guard lock(mutex_);
      if (!active_) return;
      callers_.push_back(std::this_thread::get_id());
    }
    const Call call(*this);
    function_(notification);
  }

  void end() {
    std::unique_lock lock(mutex_);
    active_ = false;
    called_.wait(lock, [this] {
      return std::all_of(callers_.begin(), callers_.end(), [](std::thread::id caller) {
        return caller == std::this_thread::get_id();
      });
    });
  }

 private:
  /// Takes the caller off the list when the call ends, also by an exception.
  class Call {
   public:
    explicit Call(Observer& observer) : observer_(observer) {}
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;
    ~Call() {
      const std::lock_guard lock(observer_.mutex_);
      auto& callers = observer_.callers_;
      callers.erase(std::find(callers.begin(), callers.end(), std::this_thread::get_id()));
      observer_.called_.notify_all();
    }

   private:
    Observer& observer_;
  };

  const std::string name_;
  const std::function<void(const Notification&)> function_;
  std::mutex mutex_;  ///< guards everything below
  std::condition_variable called_;
  std::vector<std::thread::id> callers_;
  bool active_ = true;
};

struct LocalNotificationCenter::Registry {
  std::mutex mutex;  ///< guards observers
  std::vector<std::shared_ptr<Observer>> observers;
};

class LocalNotificationCenter::RegisteredObservation final : public Observation {
 public:
  RegisteredObservation(std::shared_ptr<Registry> registry, std::shared_ptr<Observer> observer)
      : registry_(std::move(registry)), observer_(std::move(observer)) {}
  RegisteredObservation(const RegisteredObservation&) = delete;
  RegisteredObservation& operator=(const RegisteredObservation&) = delete;

  ~RegisteredObservation() override {
    {
      const std::lock_guard lock(registry_->mutex);
      std::erase(registry_->observers, observer_);
    }
    observer_->end();
  }

 private:
  const std::shared_ptr<Registry> registry_;
  const std::shared_ptr<Observer> observer_;
};

LocalNotificationCenter::LocalNotificationCenter() : registry_(std::make_shared<Registry>()) {}

LocalNotificationCenter::~LocalNotificationCenter() = default;

void LocalNotificationCenter::post(const std::string& name, const std::string& object) {
  std::vector<std::shared_ptr<Observer>> called;
  {
    const std::lock_guard lock(registry_->mutex);
    std::copy_if(registry_->observers.begin(), registry_->observers.end(),
                 std::back_inserter(called),
                 [&name](const auto& observer) { return observer->name() == name; });
  }
  for (const auto& observer : called) observer->call({name, object});
}

std::unique_ptr<Observation> LocalNotificationCenter::observe(
    const std::string& name, std::function<void(const Notification&)> observer) {
  auto registered = std::make_shared<Observer>(name, std::move(observer));
  {
    const std::lock_guard lock(registry_->mutex);
    registry_->observers.push_back(registered);
  }
  return std::make_unique<RegisteredObservation>(registry_, std::move(registered));
}

}  // namespace corvane
