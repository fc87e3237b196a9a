#import <SafariServices/SFSafariViewController.h>

#import <Foundation/NotCarried.h>

namespace {

NSString *const kInstead = @"the page is shown by its host's name.";

}  // namespace

@implementation SFSafariViewControllerConfiguration
@synthesize entersReaderIfAvailable = _entersReaderIfAvailable;
@synthesize barCollapsingEnabled = _barCollapsingEnabled;

- (instancetype)init {
  if (!(self = [super init])) return nil;
  _barCollapsingEnabled = YES;
  return self;
}

- (void)setEntersReaderIfAvailable:(BOOL)enters {
  _entersReaderIfAvailable = enters;
  if (enters) sim::notCarried(@"SFSafariViewController.configuration.entersReaderIfAvailable", kInstead);
}

- (void)setBarCollapsingEnabled:(BOOL)enabled {
  _barCollapsingEnabled = enabled;
  if (!enabled) sim::notCarried(@"SFSafariViewController.configuration.barCollapsingEnabled", kInstead);
}

- (id)copyWithZone:(NSZone *)zone {
  SFSafariViewControllerConfiguration *copy = [[[self class] allocWithZone:zone] init];
  copy->_entersReaderIfAvailable = _entersReaderIfAvailable;
  copy->_barCollapsingEnabled = _barCollapsingEnabled;
  return copy;
}

@end

@implementation SFSafariViewController
@synthesize delegate = _delegate;
@synthesize preferredBarTintColor = _preferredBarTintColor;
@synthesize preferredControlTintColor = _preferredControlTintColor;
@synthesize dismissButtonStyle = _dismissButtonStyle;

- (instancetype)initWithURL:(NSURL *)url {
  return [self initWithURL:url configuration:[[[SFSafariViewControllerConfiguration alloc] init] autorelease]];
}

- (instancetype)initWithURL:(NSURL *)url configuration:(SFSafariViewControllerConfiguration *)configuration {
  if (![@[ @"http", @"https" ] containsObject:[[url scheme] lowercaseString] ?: @""]) {
    [self release];
    [NSException raise:NSInvalidArgumentException
                format:@"The specified URL has an unsupported scheme. Only HTTP and HTTPS URLs are supported."];
  }
  if (!(self = [super initWithNibName:nil bundle:nil])) return nil;
  _URL = [url retain];
  _configuration = [configuration copy];
  [self setTitle:[url host]];
  return self;
}

- (void)dealloc {
  [_URL release];
  [_preferredBarTintColor release];
  [_preferredControlTintColor release];
  [_configuration release];
  [super dealloc];
}

- (SFSafariViewControllerConfiguration *)configuration {
  return [[_configuration copy] autorelease];
}

- (void)setPreferredBarTintColor:(UIColor *)color {
  if (color) sim::notCarried(@"SFSafariViewController.preferredBarTintColor", kInstead);
  [_preferredBarTintColor autorelease];
  _preferredBarTintColor = [color retain];
}

- (void)setPreferredControlTintColor:(UIColor *)color {
  if (color) sim::notCarried(@"SFSafariViewController.preferredControlTintColor", kInstead);
  [_preferredControlTintColor autorelease];
  _preferredControlTintColor = [color retain];
}

- (void)setDismissButtonStyle:(SFSafariViewControllerDismissButtonStyle)style {
  if (style != SFSafariViewControllerDismissButtonStyleDone)
    sim::notCarried(@"SFSafariViewController.dismissButtonStyle", kInstead);
  _dismissButtonStyle = style;
}

- (void)viewDidAppear:(BOOL)animated {
  [super viewDidAppear:animated];
  if (_hasAppeared) return;
  _hasAppeared = YES;
  [[UIApplication sharedApplication] openURL:_URL options:@{} completionHandler:nil];
  if ([_delegate respondsToSelector:@selector(safariViewController:didCompleteInitialLoad:)]) {
    [_delegate safariViewController:self didCompleteInitialLoad:NO];
  }
}

@end
