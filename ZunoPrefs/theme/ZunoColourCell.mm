#import "theme/ZunoColourCell.h"

#import <Preferences/PSSpecifier.h>

#import "theme/ThemeColour.h"

namespace {

// Lengths in points.
constexpr CGFloat kSwatchSide = 28;
constexpr CGFloat kSquareSide = 7;
constexpr CGFloat kButtonSide = 30;
constexpr CGFloat kGap = 10;

NSString *textFor(id value) {
  if (zuno::isSystemColour(value)) return @"System";
  const auto colour = zuno::storedColour(value);
  return colour ? zuno::storedText(*colour) : @"Not a colour";
}

/// Light squares and dark ones, which show through a colour that is not opaque.
void drawSquares() {
  [[UIColor whiteColor] setFill];
  UIRectFill(CGRectMake(0, 0, kSwatchSide, kSwatchSide));
  [[UIColor lightGrayColor] setFill];
  for (int row = 0; row * kSquareSide < kSwatchSide; ++row) {
    for (int column = row % 2; column * kSquareSide < kSwatchSide; column += 2) {
      UIRectFill(CGRectMake(column * kSquareSide, row * kSquareSide, kSquareSide, kSquareSide));
    }
  }
}

/// A line across a circle that holds no colour.
void drawLine() {
  UIBezierPath *line = [UIBezierPath bezierPath];
  [line moveToPoint:CGPointMake(0, kSwatchSide)];
  [line addLineToPoint:CGPointMake(kSwatchSide, 0)];
  [[UIColor grayColor] setStroke];
  [line stroke];
}

/// The colour in a circle with an edge, so that it stands out from any row; without one an empty circle.
UIImage *swatch(const std::optional<zuno::Colour> &colour) {
  UIGraphicsBeginImageContextWithOptions(CGSizeMake(kSwatchSide, kSwatchSide), NO, 0);
  const CGRect whole = CGRectMake(0, 0, kSwatchSide, kSwatchSide);
  [[UIBezierPath bezierPathWithOvalInRect:whole] addClip];
  if (colour) {
    drawSquares();
    [zuno::screenColour(*colour) setFill];
    UIRectFillUsingBlendMode(whole, kCGBlendModeNormal);
  } else {
    drawLine();
  }
  [[UIColor grayColor] setStroke];
  [[UIBezierPath bezierPathWithOvalInRect:CGRectInset(whole, 0.5, 0.5)] stroke];
  UIImage *image = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  return image;
}

}  // namespace

@implementation ZunoColourCell

- (instancetype)initWithStyle:(UITableViewCellStyle)style
              reuseIdentifier:(NSString *)reuseIdentifier
                    specifier:(PSSpecifier *)specifier {
  if (!(self = [super initWithStyle:UITableViewCellStyleValue1 reuseIdentifier:reuseIdentifier specifier:specifier])) {
    return nil;
  }
  _accessory = [[UIView alloc] initWithFrame:CGRectZero];
  _swatch = [[UIImageView alloc] initWithFrame:CGRectZero];
  [_accessory addSubview:_swatch];
  _removeButton = [[UIButton buttonWithType:UIButtonTypeClose] retain];
  [_removeButton addTarget:self action:@selector(removeColour) forControlEvents:UIControlEventTouchUpInside];
  [_accessory addSubview:_removeButton];
  return self;
}

- (void)dealloc {
  [_removeButton removeTarget:self action:nullptr forControlEvents:UIControlEventAllEvents];
  [_accessory release];
  [_swatch release];
  [_removeButton release];
  [super dealloc];
}

- (void)refreshCellContentsWithSpecifier:(PSSpecifier *)specifier {
  [super refreshCellContentsWithSpecifier:specifier];
  [self showValue:[specifier performGetter] named:[specifier name]];
}

- (void)showValue:(id)value named:(NSString *)name {
  const bool removable = !zuno::isSystemColour(value);
  NSString *text = textFor(value);
  // A page refreshes its rows often: the same colour stays the same picture.
  if (![text isEqualToString:[[self detailTextLabel] text]] || ![_swatch image]) {
    [_swatch setImage:swatch(zuno::storedColour(value))];
  }
  [_swatch setFrame:CGRectMake(0, (kButtonSide - kSwatchSide) / 2, kSwatchSide, kSwatchSide)];
  [[self detailTextLabel] setText:text];
  [_removeButton setHidden:!removable];
  [_removeButton setFrame:CGRectMake(kSwatchSide + kGap, 0, kButtonSide, kButtonSide)];
  [_removeButton setAccessibilityLabel:[NSString stringWithFormat:@"Use System Colour for %@", name]];
  [_accessory setFrame:CGRectMake(0, 0, removable ? kSwatchSide + kGap + kButtonSide : kSwatchSide, kButtonSide)];
  [self setAccessoryView:_accessory];
}

- (void)setCellEnabled:(BOOL)enabled {
  [super setCellEnabled:enabled];
  [_removeButton setEnabled:enabled];
}

- (void)removeColour {
  PSSpecifier *row = [self specifier];
  if (!row) return;

  [row performSetterWithValue:@""];
  [self refreshCellContentsWithSpecifier:row];
}

@end
