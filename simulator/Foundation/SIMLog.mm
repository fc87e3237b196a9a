#import <Foundation/SIMLog.h>

namespace {

SIMLogHandler logHandler = nullptr;
void *logContext = nullptr;
NSLog_printf_handler *standardHandler = nullptr;

/// `line` is "<date> <process>[<numbers>] <message>\n". Foundation calls this with its log lock held.
void pass(NSString *line) {
  standardHandler(line);
  if (!logHandler) return;
  const NSRange prefix = [line rangeOfString:@"] "];
  NSString *message = prefix.length ? [line substringFromIndex:NSMaxRange(prefix)] : line;
  if ([message hasSuffix:@"\n"]) message = [message substringToIndex:[message length] - 1];
  logHandler(message, logContext);
}

}  // namespace

void SIMSetLogHandler(SIMLogHandler handler, void *context) {
  if (!standardHandler) {
    standardHandler = _NSLog_printf_handler;
    _NSLog_printf_handler = pass;
  }
  logContext = context;
  logHandler = handler;
}
