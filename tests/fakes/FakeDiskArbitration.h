#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/DiskArbitration.h"

namespace corvane {

class FakeDisk : public Disk {
 public:
  explicit FakeDisk(std::optional<std::string> name) : name_(std::move(name)) {}
  std::optional<std::string> bsdName() const override { return name_; }

 private:
  std::optional<std::string> name_;
};

/// Disks that a test attaches and detaches; callbacks run inside the test's calls.
class FakeDiskArbitration : public DiskArbitration {
 public:
  bool failCreate = false;

  /// "create", "appeared", "disappeared", "schedule", "unschedule", "unmount disk4s1",
  /// "mount disk4s1", "release", in order.
  std::vector<std::string> order() const {
    std::lock_guard guard(mutex_);
    return order_;
  }

  /// Names that no disk object can be made for.
  std::set<std::string> unknownNames;

  /// Told of each step as order() has it, at the moment it is taken.
  std::function<void(const std::string& step)> onStep;

  size_t openSessions() const {
    std::lock_guard guard(mutex_);
    return sessions_.size();
  }

  /// A disk with that name, or without one, appears.
  void attach(const std::optional<std::string>& name) {
    {
      std::lock_guard guard(mutex_);
      if (name) present_.push_back(*name);
    }
    tell(name, true);
  }

  void detach(const std::optional<std::string>& name) {
    {
      std::lock_guard guard(mutex_);
      if (name) std::erase(present_, *name);
    }
    tell(name, false);
  }

  std::unique_ptr<DiskSession> createSession() override {
    if (failCreate) return nullptr;
    note("create");
    auto session = std::make_unique<Session>(*this);
    std::lock_guard guard(mutex_);
    sessions_.push_back(session.get());
    return session;
  }

 private:
  class Session : public DiskSession {
   public:
    explicit Session(FakeDiskArbitration& owner) : owner_(owner) {}
    ~Session() override {
      owner_.note("release");
      std::lock_guard guard(owner_.mutex_);
      std::erase(owner_.sessions_, this);
    }
    void registerAppeared(DiskCallback callback, void* context) override {
      owner_.note("appeared");
      appeared = {callback, context};
    }
    void registerDisappeared(DiskCallback callback, void* context) override {
      owner_.note("disappeared");
      disappeared = {callback, context};
    }
    void schedule(RunLoop&) override {
      owner_.note("schedule");
      scheduled = true;
      for (const auto& name : owner_.present()) call(name, true);
    }
    void unschedule(RunLoop&) override {
      owner_.note("unschedule");
      scheduled = false;
    }
    std::unique_ptr<Disk> createDisk(const std::string& bsdName) override {
      if (owner_.unknownNames.count(bsdName) != 0) return nullptr;
      return std::make_unique<FakeDisk>(bsdName);
    }
    void unmount(Disk& disk, DiskRequestCallback, void*) override {
      owner_.note("unmount " + disk.bsdName().value_or(""));
    }
    void mount(Disk& disk, DiskRequestCallback, void*) override {
      owner_.note("mount " + disk.bsdName().value_or(""));
    }
    void call(const std::optional<std::string>& name, bool arrives) {
      const auto& handler = arrives ? appeared : disappeared;
      if (!scheduled || handler.callback == nullptr) return;
      FakeDisk disk(name);
      handler.callback(disk, handler.context);
    }

   private:
    struct Handler {
      DiskCallback callback = nullptr;
      void* context = nullptr;
    };
    FakeDiskArbitration& owner_;
    Handler appeared;
    Handler disappeared;
    bool scheduled = false;
  };

  void note(const std::string& step) {
    {
      std::lock_guard guard(mutex_);
      order_.push_back(step);
    }
    if (onStep) onStep(step);
  }

  std::vector<std::string> present() const {
    std::lock_guard guard(mutex_);
    return present_;
  }

  void tell(const std::optional<std::string>& name, bool arrives) {
    std::vector<Session*> sessions;
    {
      std::lock_guard guard(mutex_);
      sessions = sessions_;
    }
    for (auto* session : sessions) session->call(name, arrives);
  }

  mutable std::mutex mutex_;  ///< guards everything below
  std::vector<std::string> order_;
  std::vector<std::string> present_;
  std::vector<Session*> sessions_;
};

}  // namespace corvane
