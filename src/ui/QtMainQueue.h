#pragma once

#include <QObject>

#include "platform/posix/MainQueue.h"

namespace corvane {

/// The main queue served by the toolkit's event loop. Made on the main thread; work that is still
/// waiting when it goes away is dropped.
class QtMainQueue final : public MainQueue {
 public:
  void post(std::function<void()> work) override;
  bool isMain() const override;

 private:
  QObject receiver_;  ///< lives on the main thread, so what is posted to it runs there
};

}  // namespace corvane
