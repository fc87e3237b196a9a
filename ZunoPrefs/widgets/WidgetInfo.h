// What a widget's Info list says of it.
#pragma once

#import <Foundation/Foundation.h>

namespace zuno {

/// The Info value for `key` if it is a string, else nil.
inline NSString *infoText(NSBundle *bundle, NSString *key) {
  id text = [[bundle infoDictionary] objectForKey:key];
  return [text isKindOfClass:[NSString class]] ? text : nil;
}

/// The version of the contract that the widget keeps; 0 or less when it is out of date or no widget.
inline int contractVersion(NSBundle *bundle) {
  id version = [[bundle infoDictionary] objectForKey:@"ZunoWidgetsVersion"];
  return [version respondsToSelector:@selector(intValue)] ? [version intValue] : 0;
}

}  // namespace zuno
