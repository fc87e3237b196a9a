#import "theme/ZunoThemePreview.h"

#import <QuartzCore/QuartzCore.h>

#include <algorithm>
#include <cmath>

#import "core/PreferenceFile.h"
#import "theme/BackgroundImage.h"
#import "theme/BackgroundPicture.h"
#import "theme/ThemeChange.h"
#import "theme/ThemeFile.h"

namespace {

using zuno::Appearance;
using zuno::Look;

// Points of the page.
constexpr CGFloat kTop = 16;
constexpr CGFloat kBottom = 16;
constexpr CGFloat kSide = 16;

/// How much smaller than the screen the preview is where there is room for it.
constexpr CGFloat kScale = 0.3;

// Points of the screen.
constexpr CGFloat kScreenCorner = 44;
constexpr CGFloat kIcon = 46;
constexpr CGFloat kIconCorner = 11;
constexpr CGFloat kTitleGap = 14;  // Between the icon, its title and the card.
constexpr CGFloat kTitleSize = 40;
constexpr CGFloat kBadge = 60;
constexpr CGFloat kBadgeTextSize = 38;
constexpr CGFloat kLine = 16;  // A line of the text on a card, drawn as a bar.
constexpr CGFloat kLineGap = 18;
constexpr CGFloat kCardMargin = 24;

// Shares of the screen's sides.
constexpr CGFloat kCardSide = 0.56;
constexpr CGFloat kCardsMiddle = 0.55;

/// The lines on a card, as shares of its width between the margins. Those that it has no room for are not seen.
constexpr CGFloat kLines[] = {0.55, 1, 0.92, 0.97, 0.6, 0, 1, 0.94, 0.98, 0.4};

constexpr NSUInteger kMiddle = 2;  // Of the cards.

/// How many points of the page a point of the screen becomes, on a page of that width.
CGFloat scaleForWidth(CGFloat width) {
  const CGFloat screen = [[UIScreen mainScreen] bounds].size.width;
  return screen > 0 ? std::clamp<CGFloat>((width - 2 * kSide) / screen, 0, kScale) : 0;
}

/// On a whole pixel.
CGFloat onPixel(CGFloat length) {
  const CGFloat scale = [[UIScreen mainScreen] scale];
  return std::round(length * scale) / scale;
}

CGRect onPixels(CGRect rect) {
  const CGFloat left = onPixel(CGRectGetMinX(rect)), top = onPixel(CGRectGetMinY(rect));
  return CGRectMake(left, top, onPixel(CGRectGetMaxX(rect)) - left, onPixel(CGRectGetMaxY(rect)) - top);
}

/// A system colour as it is in the theme's appearance.
UIColor *resolved(UIColor *colour, bool isDark) {
  const auto style = isDark ? UIUserInterfaceStyleDark : UIUserInterfaceStyleLight;
  return [colour resolvedColorWithTraitCollection:[UITraitCollection traitCollectionWithUserInterfaceStyle:style]];
}

UIColor *colourOr(const std::optional<zuno::Colour> &colour, UIColor *system) {
  return colour ? [UIColor colorWithRed:colour->red green:colour->green blue:colour->blue alpha:colour->alpha] : system;
}

UIView *newBox(UIView *parent) {
  UIView *box = [[UIView alloc] initWithFrame:CGRectZero];
  [parent addSubview:box];
  return box;
}

UILabel *newLabel(UIView *parent, NSString *text) {
  UILabel *label = [[UILabel alloc] initWithFrame:CGRectZero];
  [label setText:text];
  [label setBackgroundColor:[UIColor clearColor]];
  [parent addSubview:label];
  return label;
}

UIView *newCard(UIView *parent) {
  UIView *card = newBox(parent);
  for (std::size_t line = 0; line < std::size(kLines); ++line) [newBox(card) release];
  CALayer *layer = [card layer];
  [layer setShadowColor:[[UIColor blackColor] CGColor]];
  [layer setShadowOpacity:0.25f];
  [layer setShadowOffset:CGSizeMake(0, 1)];
  [layer setShadowRadius:4];
  return card;
}

NSString *whole(double number) { return [NSString stringWithFormat:@"%ld", std::lround(number)]; }

/// What the preview shows, in words.
NSString *description(const Look &look, bool hasPicture, bool isDark) {
  NSMutableArray *parts = [NSMutableArray array];
  if (hasPicture) {
    [parts addObject:std::lround(look.blurRadius) > 0
                         ? [NSString stringWithFormat:@"photo blurred by %@ points", whole(look.blurRadius)]
                         : @"sharp photo"];
  } else {
    [parts addObject:look.backgroundColour ? @"background in a colour of its own" : @"background of the system"];
  }
  if (std::lround(look.dimming) > 0) {
    [parts addObject:[NSString stringWithFormat:@"darkened by %@ percent", whole(look.dimming)]];
  }
  [parts addObject:[NSString stringWithFormat:@"cards with corners of %@ points, %@ points apart",
                                              whole(look.cornerRadius), whole(look.spacing)]];
  if (look.titleColour) [parts addObject:@"titles in a colour of their own"];
  if (look.badgeColour) [parts addObject:@"badges in a colour of their own"];
  [parts addObject:isDark ? @"dark" : @"light"];
  return [parts componentsJoinedByString:@", "];
}

}  // namespace

@implementation ZunoThemePreview

- (instancetype)initWithSpecifier:(PSSpecifier *)specifier {
  return [self initWithFrame:CGRectZero];
}

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;

  _screen = newBox(self);
  [_screen setClipsToBounds:YES];
  _picture = [[UIImageView alloc] initWithFrame:CGRectZero];
  [_picture setContentMode:UIViewContentModeScaleAspectFill];
  [_picture setClipsToBounds:YES];
  [_screen addSubview:_picture];
  _dimming = newBox(_screen);
  [_dimming setBackgroundColor:[UIColor blackColor]];
  NSMutableArray *cards = [NSMutableArray array];
  for (NSUInteger card = 0; card <= kMiddle; ++card) [cards addObject:[newCard(_screen) autorelease]];
  _cards = [cards copy];
  _icon = newBox(_screen);
  _title = newLabel(_screen, @"Notes");
  _badge = newLabel(_screen, @"3");
  [_badge setTextAlignment:NSTextAlignmentCenter];
  [_badge setTextColor:[UIColor whiteColor]];
  [_badge setClipsToBounds:YES];
  [self setIsAccessibilityElement:YES];
  [self setAccessibilityLabel:@"Preview of the switcher"];
  return self;
}

- (void)dealloc {
  [[NSNotificationCenter defaultCenter] removeObserver:self];
  [_screen release];
  [_picture release];
  [_dimming release];
  [_cards release];
  [_icon release];
  [_title release];
  [_badge release];
  [super dealloc];
}

- (CGFloat)preferredHeightForWidth:(CGFloat)width {
  return kTop + onPixel([[UIScreen mainScreen] bounds].size.height * scaleForWidth(width)) + kBottom;
}

- (CGFloat)preferredHeightForWidth:(CGFloat)width inTableView:(UITableView *)tableView {
  return [self preferredHeightForWidth:width];
}

#pragma mark - Following

/// Watches the theme file while it can be seen.
- (void)didMoveToWindow {
  [super didMoveToWindow];
  NSNotificationCenter *centre = [NSNotificationCenter defaultCenter];
  [centre removeObserver:self];
  if (![self window]) return;

  [centre addObserver:self selector:@selector(setNeedsLayout) name:zuno::kThemeChanged object:nil];
  [self setNeedsLayout];
}

- (void)traitCollectionDidChange:(UITraitCollection *)previous {
  [super traitCollectionDidChange:previous];
  [self setNeedsLayout];
}

#pragma mark - Drawing

/// Looks at the file each time: another program may have written it.
- (void)layoutSubviews {
  [super layoutSubviews];
  _look = zuno::lookOf(zuno::storedTheme());
  _photo = _look.hasPicture ? zuno::backgroundFingerprint() : 0;
  const CGFloat scale = scaleForWidth([self bounds].size.width);
  [self layOutAtScale:scale];
  [self showPictureAtScale:scale];
  [self paint];
}

- (bool)isDark {
  if (_look.appearance != Appearance::kSystem) return _look.appearance == Appearance::kDark;
  return [self isPageDark];
}

/// Places everything; `scale` is points of the page for one of the screen.
- (void)layOutAtScale:(CGFloat)scale {
  const CGSize real = [[UIScreen mainScreen] bounds].size;
  const CGSize size = CGSizeMake(onPixel(real.width * scale), onPixel(real.height * scale));
  [_screen setFrame:onPixels(CGRectMake(([self bounds].size.width - size.width) / 2, kTop, size.width, size.height))];
  [[_screen layer] setCornerRadius:kScreenCorner * scale];
  [[_screen layer] setBorderWidth:1 / [[UIScreen mainScreen] scale]];
  const CGRect bounds = [_screen bounds];
  [_picture setFrame:bounds];
  [_dimming setFrame:bounds];

  const CGSize card = CGSizeMake(size.width * kCardSide, size.height * kCardSide);
  const CGFloat left = (size.width - card.width) / 2;
  const CGFloat top = size.height * kCardsMiddle - card.height / 2;
  const CGFloat step = card.width + _look.spacing * scale;
  const CGFloat lefts[] = {left - step, left + step, left};
  for (NSUInteger number = 0; number <= kMiddle; ++number) {
    [self layOutCard:[_cards objectAtIndex:number]
                  at:onPixels(CGRectMake(lefts[number], top, card.width, card.height))
               scale:scale];
  }
  [self layOutTitleAbove:[(UIView *)[_cards objectAtIndex:kMiddle] frame] scale:scale];
}

- (void)layOutCard:(UIView *)card at:(CGRect)frame scale:(CGFloat)scale {
  [card setFrame:frame];
  [[card layer] setCornerRadius:_look.cornerRadius * scale];
  const CGFloat margin = onPixel(kCardMargin * scale), height = onPixel(kLine * scale);
  CGFloat top = margin;
  NSUInteger number = 0;
  for (UIView *line in [card subviews]) {
    const CGFloat width = (frame.size.width - 2 * margin) * kLines[number++];
    [line setFrame:CGRectMake(margin, onPixel(top), onPixel(width), height)];
    [[line layer] setCornerRadius:height / 2];
    [line setHidden:top + height > frame.size.height - margin];
    top += (kLine + kLineGap) * scale;
  }
}

- (void)layOutTitleAbove:(CGRect)card scale:(CGFloat)scale {
  const CGFloat icon = kIcon * scale, gap = kTitleGap * scale, badge = kBadge * scale;
  const CGFloat top = CGRectGetMinY(card) - gap - icon;
  [_icon setFrame:onPixels(CGRectMake(CGRectGetMinX(card), top, icon, icon))];
  [[_icon layer] setCornerRadius:kIconCorner * scale];
  [_title setFont:[UIFont systemFontOfSize:kTitleSize * scale weight:UIFontWeightSemibold]];
  const CGFloat left = CGRectGetMaxX([_icon frame]) + gap;
  [_title setFrame:onPixels(CGRectMake(left, top, CGRectGetMaxX(card) - left, icon))];
  [_badge setFont:[UIFont systemFontOfSize:kBadgeTextSize * scale]];
  [_badge
      setFrame:onPixels(CGRectMake(CGRectGetMaxX(card) - badge / 2, CGRectGetMinY(card) - badge / 2, badge, badge))];
  [[_badge layer] setCornerRadius:[_badge frame].size.height / 2];
}

- (void)showPictureAtScale:(CGFloat)scale {
  [_picture setImage:_photo ? zuno::backgroundPicture(_photo, [_picture bounds].size, _look.blurRadius * scale) : nil];
  [_dimming setAlpha:_look.dimming / 100];
}

- (void)paint {
  const bool isDark = [self isDark];
  const bool hasPicture = [_picture image] != nil;
  [_screen setBackgroundColor:colourOr(_look.backgroundColour, resolved([UIColor systemGray5Color], isDark))];
  [[_screen layer] setBorderColor:[resolved([UIColor systemGray3Color], [self isPageDark]) CGColor]];
  for (UIView *card in _cards) {
    [card setBackgroundColor:resolved([UIColor secondarySystemGroupedBackgroundColor], isDark)];
    for (UIView *line in [card subviews]) [line setBackgroundColor:resolved([UIColor systemGray4Color], isDark)];
  }
  [_icon setBackgroundColor:resolved([UIColor systemBlueColor], isDark)];
  // Over a photo the system writes in white.
  UIColor *title = hasPicture ? [UIColor whiteColor] : resolved([UIColor labelColor], isDark);
  [_title setTextColor:colourOr(_look.titleColour, title)];
  [_badge setBackgroundColor:colourOr(_look.badgeColour, resolved([UIColor systemRedColor], isDark))];
  [self setAccessibilityValue:description(_look, hasPicture, isDark)];
}

- (bool)isPageDark {
  return [[self traitCollection] userInterfaceStyle] == UIUserInterfaceStyleDark;
}

@end
