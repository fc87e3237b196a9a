#import <Foundation/SIMLog.h>

namespace {

SIMLogHandler logHandler = nullptr;
void *logContext = nullptr;
NSLog_printf_handler *standardHandler = nullptr;

/// UTF-16 units; the rest is cut off. The log of a device carries 1,024 bytes of a line, and a bundle that logs what
/// was pasted into it must not flood the terminal.
constexpr NSUInteger kLongestLine = 8'192;

/// `line` is "<date> <process>[<numbers>] <message>\n". Foundation calls this with its log lock held.
void pass(NSString *line) {
  if ([line length] > kLongestLine) line = [[line substringToIndex:kLongestLine] stringByAppendingString:@"\u2026\n"];
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

SIMLogHandler SIMCurrentLogHandler(void **context) {
  *context = logContext;
  return logHandler;
}
