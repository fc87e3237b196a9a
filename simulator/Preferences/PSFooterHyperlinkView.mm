#import <Preferences/PSFooterHyperlinkView.h>

#import <Preferences/FooterText.h>
#import <Preferences/PSSpecifier+Sim.h>
#import <Preferences/PreferencesLog.h>
#import <UIKit/FrameworkSupport.h>
#import <UIKit/UIKit.h>

@implementation PSFooterHyperlinkView
@synthesize text = _text;
@synthesize linkRange = _linkRange;
@synthesize target = _target;
@synthesize action = _action;
@synthesize URL = _URL;

- (id)initWithSpecifier:(PSSpecifier *)specifier {
  if (!(self = [super initWithFrame:CGRectZero])) return nil;

  _label = [sim::footerLabel() retain];
  _button = [[UIButton buttonWithType:UIButtonTypeCustom] retain];
  [_button addTarget:self action:@selector(sim_open) forControlEvents:UIControlEventTouchUpInside];
  [self addSubview:_label];
  [self addSubview:_button];

  NSString *text =
      [specifier sim_stringForKey:PSFooterHyperlinkViewTitleKey] ?: [specifier sim_stringForKey:PSFooterTextGroupKey];
  NSString *range = [specifier sim_stringForKey:PSFooterHyperlinkViewLinkRangeKey];
  _linkRange = range ? NSRangeFromString(range) : NSMakeRange(0, [text length]);
  id target = [specifier propertyForKey:PSFooterHyperlinkViewTargetKey];
  _target = [target isKindOfClass:[NSValue class]] ? [target nonretainedObjectValue] : [specifier target];
  NSString *action = [specifier sim_stringForKey:PSFooterHyperlinkViewActionKey];
  _action = action ? NSSelectorFromString(action) : nullptr;
  id url = [specifier propertyForKey:PSFooterHyperlinkViewURLKey];
  if ([url isKindOfClass:[NSString class]]) url = [NSURL URLWithString:url];
  if ([url isKindOfClass:[NSURL class]]) _URL = [url retain];
  [self setText:text];
  return self;
}

- (void)dealloc {
  [_label release];
  [_button release];
  [_text release];
  [_URL release];
  [super dealloc];
}

- (void)setText:(NSString *)text {
  if (text != _text) {
    [_text release];
    _text = [text copy];
  }
  [self sim_showText];
}

- (void)setLinkRange:(NSRange)range {
  _linkRange = range;
  [self sim_showText];
}

/// The link, as far as there is text.
- (NSRange)sim_link {
  return NSIntersectionRange(_linkRange, NSMakeRange(0, [_text length]));
}

- (void)sim_showText {
  NSMutableAttributedString *shown =
      [[[NSMutableAttributedString alloc] initWithString:_text ?: @""
                                              attributes:@{
                                                NSFontAttributeName : [_label font],
                                                NSForegroundColorAttributeName : [UIColor secondaryLabelColor]
                                              }] autorelease];
  const NSRange link = [self sim_link];
  [shown addAttribute:NSForegroundColorAttributeName value:[UIColor systemBlueColor] range:link];
  const sim::SystemSets system;
  [_label setAttributedText:shown];
  [_button setAccessibilityLabel:[_text substringWithRange:link]];
  [_button setHidden:link.length == 0];
}

- (void)sim_open {
  if (_action && [_target respondsToSelector:_action]) {
    [_target performSelector:_action withObject:self];
  } else if (_action) {
    sim::logPreferences(@"%@ does not answer %@, named by \"%@\".", [_target class], NSStringFromSelector(_action),
                        PSFooterHyperlinkViewActionKey);
  } else if (_URL) {
    [[UIApplication sharedApplication] openURL:_URL options:@{} completionHandler:nil];
  }
}

- (CGFloat)preferredHeightForWidth:(CGFloat)width {
  return sim::footerHeight(_label, width);
}

- (CGFloat)preferredHeightForWidth:(CGFloat)width inTableView:(UITableView *)tableView {
  (void)tableView;
  return [self preferredHeightForWidth:width];
}

- (void)layoutSubviews {
  [super layoutSubviews];
  const CGRect frame = sim::footerLabelFrame([self bounds].size);
  [_label setFrame:frame];
  [_button setFrame:frame];
}

@end
