#include "macos/standin/MacSystem.h"

#include <DiskArbitration/DiskArbitration.h>
#include <IOKit/IOKitLib.h>
#include <Security/Authorization.h>
#include <dispatch/dispatch.h>

#include "macos/MacOverBenchFixture.h"
#include "platform/macos/PropertyConversion.h"

using namespace corvane;
using namespace corvane::macos;

namespace {

// The stand-in itself: it counts what it gives out and refuses what the system refuses.
class MacSystemTest : public MacOverBenchFixture {
 protected:
  static CFDictionaryRef newMatching() {
    return platformDictionary(
               {{"IOPropertyMatch",
                 PropertyValue::Dictionary{{"CFBundleIdentifier", "com.velmar.Corvane2-FC"}}}})
        .release();
  }
};

TEST_F(MacSystemTest, TellsWhatIsHeld) {
  CFStringRef string = platformString("kept").release();
  const io_service_t service = IOServiceGetMatchingService(MACH_PORT_NULL, newMatching());
  ASSERT_NE(service, IO_OBJECT_NULL);
  IONotificationPortRef port = IONotificationPortCreate(MACH_PORT_NULL);
  AuthorizationRef authorization = nullptr;
  AuthorizationCreate(nullptr, nullptr, kAuthorizationFlagDefaults, &authorization);
  EXPECT_EQ(system().held(), "1 registry handle, 1 authorization, 1 notification port, 1 string");
  CFRelease(string);
  IOObjectRelease(service);
  IONotificationPortDestroy(port);
  AuthorizationFree(authorization, kAuthorizationFlagDefaults);
}

TEST_F(MacSystemTest, NotesASecondRelease) {
  CFStringRef string = platformString("twice").release();
  CFRelease(string);
  CFRelease(string);
  const io_service_t service = IOServiceGetMatchingService(MACH_PORT_NULL, newMatching());
  EXPECT_EQ(IOObjectRelease(service), kIOReturnSuccess);
  EXPECT_EQ(IOObjectRelease(service), kIOReturnBadArgument);
  expectedMisuses_ = {"CFRelease of a string that is gone",
                      "IOObjectRelease of an object to which there is no reference"};
}

TEST_F(MacSystemTest, NotesTheUseOfWhatIsGone) {
  CFDataRef data = static_cast<CFDataRef>(platformValue(PropertyValue::Data{1}).release());
  CFRelease(data);
  EXPECT_EQ(CFDataGetLength(data), 0);
  EXPECT_EQ(CFGetTypeID(nullptr), CFTypeID{0});
  io_registry_entry_t parent = 7;
  EXPECT_NE(IORegistryEntryGetParentEntry(4711, servicePlane, &parent), kIOReturnSuccess);
  EXPECT_EQ(parent, IO_OBJECT_NULL);
  expectedMisuses_ = {"CFDataGetLength of a data that is gone", "CFGetTypeID of nothing",
                      "IORegistryEntryGetParentEntry of an object to which there is no reference"};
}

TEST_F(MacSystemTest, AMatchingDictionaryIsConsumed) {
  CFDictionaryRef matching = newMatching();
  const io_service_t service = IOServiceGetMatchingService(MACH_PORT_NULL, matching);
  CFRelease(matching);
  IOObjectRelease(service);
  expectedMisuses_ = {"CFRelease of a dictionary that is gone"};
}

TEST_F(MacSystemTest, ACollectionKeepsNothingThatIsNotThere) {
  const CoreFoundationReference<CFMutableArrayRef> array(
      CFArrayCreateMutable(kCFAllocatorDefault, 0, &kCFTypeArrayCallBacks));
  CFArrayAppendValue(array.get(), nullptr);
  EXPECT_EQ(CFArrayGetCount(array.get()), 0);
  EXPECT_EQ(CFArrayGetValueAtIndex(array.get(), 0), nullptr);
  expectedMisuses_ = {"CFArrayAppendValue of nothing", "CFArrayGetValueAtIndex beyond the end"};
}

TEST_F(MacSystemTest, AConnectionIsClosedOnce) {
  EXPECT_NE(IOConnectRelease(MACH_PORT_NULL), kIOReturnSuccess);
  EXPECT_NE(IOConnectRelease(5), kIOReturnSuccess);
  size_t size = 0;
  EXPECT_NE(IOConnectCallStructMethod(5, 0, nullptr, 0, nullptr, &size), kIOReturnSuccess);
  expectedMisuses_ = {"IOConnectRelease of a connection that is not open",
                      "IOConnectCallStructMethod of a connection that is not open"};
}

TEST_F(MacSystemTest, ASemaphoreIsReleasedWithItsFirstValue) {
  const dispatch_semaphore_t semaphore = dispatch_semaphore_create(1);
  EXPECT_EQ(dispatch_semaphore_wait(semaphore, DISPATCH_TIME_FOREVER), 0);
  dispatch_release(semaphore);
  expectedMisuses_ = {"dispatch_release of a semaphore that is in use"};
}

TEST_F(MacSystemTest, ACallFailsFromWhereItIsToldTo) {
  system().fail("CFNumberCreate", 1);
  const int8_t value = 3;
  const auto create = [&value] {
    return CoreFoundationReference<CFNumberRef>(
        CFNumberCreate(kCFAllocatorDefault, kCFNumberSInt8Type, &value));
  };
  EXPECT_TRUE(create());
  EXPECT_FALSE(create());
  EXPECT_FALSE(create());
  system().mend("CFNumberCreate");
  EXPECT_TRUE(create());
  EXPECT_EQ(system().calls("CFNumberCreate"), size_t{4});
}

}  // namespace
