#pragma once

#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

#include "platform/Dispatch.h"

namespace corvane {

/// Work for the main queue that belongs to an object, its owner, and is dropped without a trace
/// when the owner has gone before the work's turn comes.
///
/// The owner holds it as its last member, so that it goes first, and is destroyed on the main
/// thread. The dispatch outlives everything here. Work takes the owner as its argument: a callable,
/// or a pointer to one of the owner's functions. It may destroy the owner.
template <typename Owner>
class OwnedMainWork {
 public:
  /// The owner's place on the main queue as work of other threads holds it. Copies stand for the
  /// same owner, may outlive it, and can be used on any thread.
  class Way {
   public:
    /// Puts the work on the main queue.
    template <typename Work>
    void async(Work work) const {
      dispatch_->asyncMain(whileOwned(std::move(work)));
    }

    /// The same, and waits until the work is done or dropped. On the main thread it is done at
    /// once.
    template <typename Work>
    void sync(Work work) const {
      dispatch_->syncMain(whileOwned(std::move(work)));
    }

   private:
    friend class OwnedMainWork;
    Way(Dispatch& dispatch, const std::shared_ptr<Owner*>& owner)
        : dispatch_(&dispatch), owner_(owner) {}

    template <typename Work>
    std::function<void()> whileOwned(Work work) const {
      static_assert(std::is_invocable_v<Work&, Owner&>, "work takes the owner");
      return [owner = owner_, work = std::move(work)]() mutable {
        if (const auto alive = owner.lock()) std::invoke(work, **alive);
      };
    }

    Dispatch* dispatch_;
    std::weak_ptr<Owner*> owner_;
  };

  OwnedMainWork(Dispatch& dispatch, Owner& owner)
      : dispatch_(dispatch), owner_(std::make_shared<Owner*>(&owner)) {}
  OwnedMainWork(const OwnedMainWork&) = delete;
  OwnedMainWork& operator=(const OwnedMainWork&) = delete;

  /// For work that goes elsewhere first. Give it this, never the owner.
  Way way() const { return Way(dispatch_, owner_); }

  /// Puts the work on the main queue.
  template <typename Work>
  void async(Work work) const {
    way().async(std::move(work));
  }

 private:
  Dispatch& dispatch_;
  std::shared_ptr<Owner*> owner_;  ///< the one strong hold; only the main thread takes another
};

}  // namespace corvane
