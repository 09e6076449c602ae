#pragma once

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "platform/NotificationCenter.h"

namespace corvane {

/// A notification centre that records what is posted besides telling the observers.
class FakeNotificationCenter : public NotificationCenter {
 public:
  /// Name and object of each, in order.
  std::vector<std::pair<std::string, std::string>> posts() const {
    std::lock_guard guard(state_->mutex);
    return posts_;
  }

  void clear() {
    std::lock_guard guard(state_->mutex);
    posts_.clear();
  }

  /// The names observed, in the order of registration.
  std::vector<std::string> observed() const {
    std::lock_guard guard(state_->mutex);
    std::vector<std::string> names;
    for (const auto& [id, each] : state_->observers) names.push_back(each.name);
    return names;
  }

  void post(const std::string& name, const std::string& object) override {
    std::vector<std::function<void(const Notification&)>> concerned;
    {
      std::lock_guard guard(state_->mutex);
      posts_.emplace_back(name, object);
      for (const auto& [id, each] : state_->observers)
        if (each.name == name) concerned.push_back(each.observer);
    }
    for (const auto& observer : concerned) observer({name, object});
  }

  std::unique_ptr<Observation> observe(const std::string& name,
                                       std::function<void(const Notification&)> observer) override {
    std::lock_guard guard(state_->mutex);
    const int id = ++state_->lastId;
    state_->observers[id] = {name, std::move(observer)};
    return std::make_unique<Ended>(state_, id);
  }

 private:
  struct Observer {
    std::string name;
    std::function<void(const Notification&)> observer;
  };
  struct State {
    std::mutex mutex;  ///< guards everything here and the posts
    std::map<int, Observer> observers;
    int lastId = 0;
  };
  class Ended : public Observation {
   public:
    Ended(std::shared_ptr<State> state, int id) : state_(std::move(state)), id_(id) {}
    ~Ended() override {
      std::lock_guard guard(state_->mutex);
      state_->observers.erase(id_);
    }

   private:
    std::shared_ptr<State> state_;
    int id_;
  };

  std::shared_ptr<State> state_ = std::make_shared<State>();
  std::vector<std::pair<std::string, std::string>> posts_;
};

}  // namespace corvane
