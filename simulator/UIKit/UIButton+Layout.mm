// Where a button's picture and title lie, and how large it is for them.
#import <UIKit/UIButtonState.h>
#import <UIKit/UIViewLayout.h>

#include <algorithm>

namespace {

constexpr CGFloat kSystemVerticalInset = 6;

/// Where along one axis something of `length` lies in a room from `start` on, moved as `before` and `after` say.
/// `place` is 0 at the start of the room, 1 at its end.
CGFloat startIn(CGFloat start, CGFloat room, CGFloat length, CGFloat place, CGFloat before, CGFloat after) {
  return start + before + (room - before - after - length) * place;
}

/// How far towards the right the content stands, from 0 to 1.
CGFloat acrossPlace(UIControlContentHorizontalAlignment alignment) {
  switch (alignment) {
    case UIControlContentHorizontalAlignmentLeft:
    case UIControlContentHorizontalAlignmentLeading: return 0;
    case UIControlContentHorizontalAlignmentRight:
    case UIControlContentHorizontalAlignmentTrailing: return 1;
    default: return 0.5;
  }
}

CGFloat downPlace(UIControlContentVerticalAlignment alignment) {
  switch (alignment) {
    case UIControlContentVerticalAlignmentTop: return 0;
    case UIControlContentVerticalAlignmentBottom: return 1;
    default: return 0.5;
  }
}

}  // namespace

@implementation UIButton (Layout)

- (UIEdgeInsets)contentEdgeInsets {
  return _buttonState->contentInsets;
}

- (void)setContentEdgeInsets:(UIEdgeInsets)insets {
  if (UIEdgeInsetsEqualToEdgeInsets(insets, _buttonState->contentInsets)) return;
  _buttonState->contentInsets = insets;
  [self invalidateIntrinsicContentSize];
  [self setNeedsLayout];
}

- (UIEdgeInsets)titleEdgeInsets {
  return _buttonState->titleInsets;
}

- (void)setTitleEdgeInsets:(UIEdgeInsets)insets {
  _buttonState->titleInsets = insets;
  [self setNeedsLayout];
}

- (UIEdgeInsets)imageEdgeInsets {
  return _buttonState->imageInsets;
}

- (void)setImageEdgeInsets:(UIEdgeInsets)insets {
  _buttonState->imageInsets = insets;
  [self setNeedsLayout];
}

- (CGSize)sim_titleSize {
  return [self sim_hasTitle] ? [[self titleLabel] sizeThatFits:CGSizeZero] : CGSizeZero;
}

- (CGSize)sizeThatFits:(CGSize)size {
  (void)size;
  const CGSize title = [self sim_titleSize];
  const CGSize image = [[self currentImage] size];
  const UIEdgeInsets insets = _buttonState->contentInsets;
  // A button of the system's kind keeps some room above and below, unless it is said how much.
  const bool isRoomSaid = insets.top != 0 || insets.bottom != 0;
  const CGFloat room = _buttonState->type == UIButtonTypeSystem && !isRoomSaid ? 2 * kSystemVerticalInset : 0;
  return CGSizeMake(image.width + title.width + insets.left + insets.right,
                    std::max(image.height, title.height) + room + insets.top + insets.bottom);
}

- (CGSize)intrinsicContentSize {
  return [self sizeThatFits:CGSizeZero];
}

- (BOOL)sim_getBaselines:(sim::Baselines &)baselines {
  if (![self sim_hasTitle]) return NO;
  (void)[[self titleLabel] sim_getBaselines:baselines];
  const CGSize size = [self sizeThatFits:CGSizeZero];
  const CGRect title = [self titleRectForContentRect:[self contentRectForBounds:{CGPointZero, size}]];
  baselines.firstFromTop += CGRectGetMinY(title);
  baselines.lastFromBottom += size.height - CGRectGetMaxY(title);
  return YES;
}

- (CGRect)backgroundRectForBounds:(CGRect)bounds {
  return bounds;
}

- (CGRect)contentRectForBounds:(CGRect)bounds {
  return UIEdgeInsetsInsetRect(bounds, _buttonState->contentInsets);
}

/// How wide the title is where it has `content` and the picture beside it: what the picture leaves.
- (CGFloat)sim_titleWidthIn:(CGRect)content {
  const UIEdgeInsets insets = _buttonState->titleInsets;
  const CGFloat room = content.size.width - [[self currentImage] size].width - insets.left - insets.right;
  return std::min([self sim_titleSize].width, std::max<CGFloat>(room, 0));
}

- (CGRect)imageRectForContentRect:(CGRect)content {
  const CGSize image = [[self currentImage] size];
  const UIEdgeInsets insets = _buttonState->imageInsets;
  const CGFloat beside = [self sim_titleWidthIn:content];
  const CGFloat across = acrossPlace([self contentHorizontalAlignment]);
  const CGFloat down = downPlace([self contentVerticalAlignment]);
  return CGRectMake(
      startIn(content.origin.x, content.size.width - beside, image.width, across, insets.left, insets.right),
      startIn(content.origin.y, content.size.height, image.height, down, insets.top, insets.bottom), image.width,
      image.height);
}

- (CGRect)titleRectForContentRect:(CGRect)content {
  const CGFloat before = [[self currentImage] size].width;
  const CGSize title = CGSizeMake([self sim_titleWidthIn:content], [self sim_titleSize].height);
  const UIEdgeInsets insets = _buttonState->titleInsets;
  const CGFloat across = acrossPlace([self contentHorizontalAlignment]);
  const CGFloat down = downPlace([self contentVerticalAlignment]);
  return CGRectMake(
      startIn(content.origin.x + before, content.size.width - before, title.width, across, insets.left, insets.right),
      startIn(content.origin.y, content.size.height, title.height, down, insets.top, insets.bottom), title.width,
      title.height);
}

- (void)layoutSubviews {
  [super layoutSubviews];
  const CGRect bounds = [self bounds];
  const CGRect content = [self contentRectForBounds:bounds];
  [_buttonState->backgroundView.get() setFrame:[self backgroundRectForBounds:bounds]];
  [_buttonState->imageView.get() setFrame:[self imageRectForContentRect:content]];
  [_buttonState->titleLabel.get() setFrame:[self titleRectForContentRect:content]];
}

@end
