#include "discovery/AdapterMonitor.h"

#include <chrono>
#include <utility>

#include "discovery/LoggedExceptions.h"

namespace corvane {

namespace {

constexpr std::chrono::milliseconds stopPause{10};

}  // namespace

AdapterMonitor::AdapterMonitor(const Platform& platform)
    : platform_(platform), notifications_(platform.registry, platform.runLoops, platform.log) {}

void AdapterMonitor::whenStarted(std::function<void(int32_t)> started) {
  started_ = std::move(started);
}

void AdapterMonitor::start() {
  platform_.dispatch.asyncGlobal(QueuePriority::Default, [this, gate = gate_] {
    gate->pass([this] { startMonitorRunLoop(); });
  });
}

int32_t AdapterMonitor::startMonitorRunLoop() {
  int32_t status = registrationFailed;
  logExceptions(platform_.log, [&] { status = registerEvents(); });
  if (started_) started_(status);
  if (status == 0) logExceptions(platform_.log, [this] { platform_.runLoops.run(); });
  return status;
}

int32_t AdapterMonitor::watchDriver(const std::string& bundleIdentifier, MatchingCallback appeared,
                                    MatchingCallback disappeared, void* context) {
  if (!createMatching(platform_, ioPropertyMatchDic_, ioPropertyMatchSubDic_))
    return registrationFailed;
  (*ioPropertyMatchSubDic_)["CFBundleIdentifier"] = bundleIdentifier;
  (*ioPropertyMatchDic_)["IOPropertyMatch"] = *ioPropertyMatchSubDic_;
  return notifications_.watchBoth(ioPropertyMatchDic_, appeared, disappeared, context,
                                  ioDeviceAppeared_, ioDeviceDisappeared_);
}

void AdapterMonitor::stop() {
  if (std::exchange(stopped_, true)) return;
  gate_->close();
  logExceptions(platform_.log, [this] { prepareToStop(); });
  endRunLoop();
  logExceptions(platform_.log, [this] { tearDown(); });
}

// A stop that comes before the monitor's thread serves its run loop would be lost, so it is
// repeated until the thread has left.
void AdapterMonitor::endRunLoop() {
  while (true) {
    if (const auto loop = notifications_.currentLoop()) loop->stop();
    if (gate_->isIdle()) return;
    platform_.dispatch.sleep(stopPause);
  }
}

void AdapterMonitor::tearDown() {
  releaseOwn();
  ioPropertyMatchDic_.reset();
  ioPropertyMatchSubDic_.reset();
  ioDeviceAppeared_.reset();
  ioDeviceDisappeared_.reset();
  dropDevices();
  notifications_.close();
  platform_.log.system("Monitor stopped");
}

}  // namespace corvane
