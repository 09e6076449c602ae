#include "platform/macos/MacScriptRunner.h"

#import <Foundation/Foundation.h>

namespace corvane::macos {

ScriptResult MacScriptRunner::run(const std::string& script) {
  @autoreleasepool {
    NSString* source = [NSString stringWithUTF8String:script.c_str()];
    NSAppleScript* runner = [[NSAppleScript alloc] initWithSource:source];
    NSDictionary<NSString*, id>* error = nil;
    if ([runner executeAndReturnError:&error] != nil) return {true, {}};
    NSString* message = error[NSAppleScriptErrorMessage];
    return {false, message != nil ? message.UTF8String : ""};
  }
}

}  // namespace corvane::macos
