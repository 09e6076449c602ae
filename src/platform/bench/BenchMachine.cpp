#include "platform/bench/BenchMachine.h"

#include <fmt/format.h>
#include <sys/stat.h>

#include <algorithm>

#include "platform/bench/file/BenchEdits.h"
#include "platform/bench/file/BenchFolder.h"

namespace corvane {

int64_t systemClockMilliseconds() {
  const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::milliseconds>(sinceEpoch).count();
}

BenchMachine::BenchMachine(const std::string& path, BenchClock clock, Log& log)
    : file_(path), clock_(std::move(clock)), log_(log), stamp_(stampOfFile()) {
  state_ = std::make_shared<const BenchState>(file_.load());
  delivered_ = state_;
  BenchFolder(file_).create();
}

BenchMachine::~BenchMachine() {
  stopWatching();
}

std::shared_ptr<const BenchState> BenchMachine::state() {
  const std::lock_guard guard(mutex_);
  const Stamp stamp = stampOfFile();
  if (stamp != stamp_) readAnew(stamp);
  return state_;
}

bool BenchMachine::update(const std::function<void(BenchState&)>& change) {
  try {
    file_.update(change);
    return true;
  } catch (const BenchFileError& error) {
    log_.system(fmt::format("The bench keeps its state: {}", error.what()));
    return false;
  }
}

int64_t BenchMachine::realMilliseconds(std::chrono::milliseconds duration) {
  return static_cast<int64_t>(static_cast<double>(duration.count()) / state()->clockRate);
}

void BenchMachine::observe(Observer observer) {
  observers_.push_back(std::move(observer));
}

void BenchMachine::watch(std::chrono::milliseconds interval) {
  watcher_ = std::thread([this, interval] { look(interval); });
}

void BenchMachine::stopWatching() {
  {
    const std::lock_guard guard(watchMutex_);
    stopped_ = true;
  }
  wake_.notify_all();
  if (watcher_.joinable()) watcher_.join();
}

BenchMachine::Stamp BenchMachine::stampOfFile() const {
  struct stat status {};
  if (::stat(file_.path().c_str(), &status) != 0) return {};
#ifdef __APPLE__
  const timespec& changed = status.st_mtimespec;
#else
  const timespec& changed = status.st_mtim;
#endif
  return {static_cast<uint64_t>(status.st_dev), static_cast<uint64_t>(status.st_ino),
          static_cast<int64_t>(changed.tv_sec), static_cast<int64_t>(changed.tv_nsec),
          static_cast<int64_t>(status.st_size)};
}

void BenchMachine::readAnew(const Stamp& stamp) {
  stamp_ = stamp;
  try {
    state_ = std::make_shared<const BenchState>(file_.load());
  } catch (const BenchFileError& error) {
    log_.system(fmt::format("The bench stays as it was: {}", error.what()));
  }
}

void BenchMachine::look(std::chrono::milliseconds interval) {
  std::unique_lock lock(watchMutex_);
  while (!stopped_) {
    lock.unlock();
    deliver();
    lock.lock();
    wake_.wait_for(lock, interval, [this] { return stopped_; });
  }
}

void BenchMachine::deliver() {
  const std::shared_ptr<const BenchState> current = state();
  if (current == delivered_) return;
  delivered_ = current;
  for (const Observer& observer : observers_) observer(*current);
  restartDetached(*current);
}

/// An adapter that somebody unplugged by editing the file starts anew like any other.
void BenchMachine::restartDetached(const BenchState& state) {
  const bool isAnyWaiting =
      std::any_of(state.adapters.begin(), state.adapters.end(), [](const BenchAdapter& adapter) {
        return !adapter.attached && adapter.pendingFirmware.has_value();
      });
  if (!isAnyWaiting) return;
  update([](BenchState& changed) {
    for (BenchAdapter& adapter : changed.adapters) {
      if (!adapter.attached) losePower(adapter);
    }
  });
}

}  // namespace corvane
