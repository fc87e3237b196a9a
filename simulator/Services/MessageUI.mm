#import <MessageUI/MessageUI.h>

#import <Foundation/NotCarried.h>

namespace {

/// Of objects that there are none of, unless a subclass makes one.
void goesNowhere(Class kind) { sim::notCarried(NSStringFromClass(kind), @"there is no account to send from."); }

}  // namespace

@implementation MFMailComposeViewController
@synthesize mailComposeDelegate = _mailComposeDelegate;

+ (BOOL)canSendMail {
  return NO;
}

- (instancetype)init {
  NSLog(@"[MessageUI] No mail can be sent; ask +canSendMail first.");
  [self release];
  return nil;
}

- (void)setMailComposeDelegate:(id<MFMailComposeViewControllerDelegate>)delegate {
  _mailComposeDelegate = delegate;
  goesNowhere([self class]);
}

- (void)setSubject:(NSString *)subject {
  (void)subject;
  goesNowhere([self class]);
}

- (void)setToRecipients:(NSArray *)recipients {
  (void)recipients;
  goesNowhere([self class]);
}

- (void)setCcRecipients:(NSArray *)recipients {
  (void)recipients;
  goesNowhere([self class]);
}

- (void)setBccRecipients:(NSArray *)recipients {
  (void)recipients;
  goesNowhere([self class]);
}

- (void)setMessageBody:(NSString *)body isHTML:(BOOL)isHTML {
  (void)body;
  (void)isHTML;
  goesNowhere([self class]);
}

- (void)addAttachmentData:(NSData *)attachment mimeType:(NSString *)type fileName:(NSString *)name {
  (void)attachment;
  (void)type;
  (void)name;
  goesNowhere([self class]);
}

@end

@implementation MFMessageComposeViewController
@synthesize messageComposeDelegate = _messageComposeDelegate;
@synthesize recipients = _recipients;
@synthesize body = _body;

+ (BOOL)canSendText {
  return NO;
}

+ (BOOL)canSendSubject {
  return NO;
}

+ (BOOL)canSendAttachments {
  return NO;
}

- (instancetype)init {
  NSLog(@"[MessageUI] No message can be sent; ask +canSendText first.");
  [self release];
  return nil;
}

- (void)dealloc {
  [_recipients release];
  [_body release];
  [super dealloc];
}

- (void)setMessageComposeDelegate:(id<MFMessageComposeViewControllerDelegate>)delegate {
  _messageComposeDelegate = delegate;
  goesNowhere([self class]);
}

- (void)setRecipients:(NSArray *)recipients {
  [_recipients autorelease];
  _recipients = [recipients copy];
  goesNowhere([self class]);
}

- (void)setBody:(NSString *)body {
  [_body autorelease];
  _body = [body copy];
  goesNowhere([self class]);
}

@end
