#include <gtest/gtest.h>

#include <array>
#include <thread>
#include <vector>

#include "platform/macos/CallbackTable.h"
#include "platform/macos/LockState.h"
#include "platform/macos/Reference.h"

using namespace corvane;
using namespace corvane::macos;

namespace {

struct CountedObject {
  int references = 1;
};

struct ObjectCounting {
  static void retain(CountedObject* object) { ++object->references; }
  static void release(CountedObject* object) { --object->references; }
};

using ObjectReference = Reference<CountedObject*, ObjectCounting>;

TEST(Reference, ReleasesWhatItTookOverExactlyOnce) {
  CountedObject object;
  { const ObjectReference owner(&object); }
  EXPECT_EQ(object.references, 0);
}

TEST(Reference, AddsAReferenceToWhatSomebodyElseOwns) {
  CountedObject object;
  {
    const auto borrower = ObjectReference::retaining(&object);
    EXPECT_EQ(object.references, 2);
  }
  EXPECT_EQ(object.references, 1);
}

TEST(Reference, RetainingNothingOwnsNothing) {
  EXPECT_FALSE(ObjectReference::retaining(nullptr));
}

TEST(Reference, MovingHandsTheReferenceOn) {
  CountedObject object;
  {
    ObjectReference first(&object);
    const ObjectReference second(std::move(first));
    EXPECT_EQ(second.get(), &object);
    EXPECT_EQ(object.references, 1);
  }
  EXPECT_EQ(object.references, 0);
}

TEST(Reference, AssigningReleasesWhatWasHeldAtOnce) {
  CountedObject old;
  CountedObject current;
  ObjectReference owner(&old);
  owner = ObjectReference(&current);
  EXPECT_EQ(old.references, 0);
  EXPECT_EQ(current.references, 1);
}

TEST(Reference, GivingAwayReleasesNothing) {
  CountedObject object;
  {
    ObjectReference owner(&object);
    EXPECT_EQ(owner.release(), &object);
  }
  EXPECT_EQ(object.references, 1);
}

using Callback = void (*)(void*, int);

void addToContext(void* context, int amount) {
  *static_cast<int*>(context) += amount;
}

TEST(CallbackTable, AddressesStayValidAsItGrows) {
  constexpr size_t count = 1000;
  CallbackTable<Callback> table;
  std::vector<int> sums(count);
  std::vector<void*> addresses;
  for (int& sum : sums) addresses.push_back(table.keep(addToContext, &sum));
  for (size_t index = 0; index < count; ++index) {
    const auto& target = CallbackTable<Callback>::target(addresses[index]);
    target.callback(target.context, static_cast<int>(index));
  }
  for (size_t index = 0; index < count; ++index) EXPECT_EQ(sums[index], static_cast<int>(index));
}

TEST(CallbackTable, IsFilledFromSeveralThreads) {
  constexpr int perThread = 500;
  CallbackTable<Callback> table;
  std::array<int, 4> sums{};
  std::vector<std::thread> threads;
  for (int& sum : sums) {
    threads.emplace_back([&table, &sum] {
      for (int round = 0; round < perThread; ++round) {
        const auto& target = CallbackTable<Callback>::target(table.keep(addToContext, &sum));
        target.callback(target.context, 1);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (const int sum : sums) EXPECT_EQ(sum, perThread);
}

struct LockListener final : AuthorizationDelegate {
  void authorizationViewDidAuthorize() override { ++opened; }
  void authorizationViewDidDeauthorize() override { ++closed; }
  int opened = 0;
  int closed = 0;
};

TEST(LockState, StartsClosed) {
  EXPECT_FALSE(LockState().isOpen());
}

TEST(LockState, TellsOfChangesOnly) {
  LockListener listener;
  LockState lock;
  lock.setDelegate(&listener);
  lock.set(false);
  lock.set(true);
  lock.set(true);
  lock.set(false);
  EXPECT_EQ(listener.opened, 1);
  EXPECT_EQ(listener.closed, 1);
}

TEST(LockState, WorksWithoutADelegate) {
  LockState lock;
  lock.set(true);
  EXPECT_TRUE(lock.isOpen());
}

}  // namespace
