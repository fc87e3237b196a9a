// What a layout by constraints costs: of 100 and of 200 cells that get another width, each with a picture, two texts, a
// switch and ten constraints. About 2 means that the time is linear in the number of cells. Beside it the same frames
// set by hand, in `layoutSubviews`.
#import <UIKit/UIKit.h>
#import <objcxx/Retained.h>

#include "Claims.hpp"
#include "median.hpp"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <vector>

namespace {

constexpr int kRepetitions = 41;
constexpr CGFloat kCellHeight = 60;

/// The most that the pass of twice as many cells may take.
constexpr double kTwiceAsMany = 2.2;

/// The most that constraints may cost in place of frames. The frames that are set here come from a few additions and
/// the same views are moved, so that this is the price of the equations: with 40 rows on a screen some two
/// milliseconds.
constexpr double kAgainstFrames = 60;

}  // namespace

/// The four views of a cell.
@interface BenchCell : UIView {
 @public
  UIImageView *picture;
  UILabel *title;
  UILabel *detail;
  UISwitch *toggle;
}
@end

@implementation BenchCell

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;
  picture = [[[UIImageView alloc] initWithFrame:CGRectZero] autorelease];
  title = [[[UILabel alloc] initWithFrame:CGRectZero] autorelease];
  detail = [[[UILabel alloc] initWithFrame:CGRectZero] autorelease];
  toggle = [[[UISwitch alloc] initWithFrame:CGRectZero] autorelease];
  [title setText:@"Title"];
  [detail setText:@"A second line"];
  for (UIView *view in @[ picture, title, detail, toggle ]) [self addSubview:view];
  return self;
}

@end

@interface ConstraintCell : BenchCell
@end

@implementation ConstraintCell

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;
  for (UIView *view in [self subviews]) [view setTranslatesAutoresizingMaskIntoConstraints:NO];
  [NSLayoutConstraint activateConstraints:@[
    [picture.leadingAnchor constraintEqualToAnchor:self.leadingAnchor constant:16],
    [picture.centerYAnchor constraintEqualToAnchor:self.centerYAnchor],
    [picture.widthAnchor constraintEqualToConstant:40],
    [picture.heightAnchor constraintEqualToConstant:40],
    [title.leadingAnchor constraintEqualToAnchor:picture.trailingAnchor constant:12],
    [title.topAnchor constraintEqualToAnchor:self.topAnchor constant:8],
    [detail.leadingAnchor constraintEqualToAnchor:title.leadingAnchor],
    [detail.topAnchor constraintEqualToAnchor:title.bottomAnchor constant:2],
    [toggle.trailingAnchor constraintEqualToAnchor:self.trailingAnchor constant:-16],
    [toggle.centerYAnchor constraintEqualToAnchor:self.centerYAnchor],
  ]];
  return self;
}

@end

@interface FrameCell : BenchCell {
 @private
  CGSize _titleSize;
  CGSize _detailSize;
}
@end

@implementation FrameCell

- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;
  _titleSize = [title intrinsicContentSize];
  _detailSize = [detail intrinsicContentSize];
  return self;
}

- (void)layoutSubviews {
  [super layoutSubviews];
  const CGSize size = [self bounds].size;
  [picture setFrame:CGRectMake(16, (size.height - 40) / 2, 40, 40)];
  [title setFrame:CGRectMake(68, 8, _titleSize.width, _titleSize.height)];
  [detail setFrame:CGRectMake(68, 10 + _titleSize.height, _detailSize.width, _detailSize.height)];
  const CGSize toggleSize = [toggle bounds].size;
  [toggle setFrame:CGRectMake(size.width - 16 - toggleSize.width, (size.height - toggleSize.height) / 2,
                              toggleSize.width, toggleSize.height)];
}

@end

namespace {

void require(bool holds, const char *what) {
  if (holds) return;
  std::fprintf(stderr, "bench_layout: %s\n", what);
  std::exit(1);
}

objcxx::Retained<UIView> columnOf(Class kind, int count) {
  auto host = objcxx::adopt([[UIView alloc] initWithFrame:CGRectMake(0, 0, 320, kCellHeight * count)]);
  for (int row = 0; row < count; ++row) {
    const auto cell =
        objcxx::adopt((UIView *)[[kind alloc] initWithFrame:CGRectMake(0, kCellHeight * row, 320, kCellHeight)]);
    [host.get() addSubview:cell.get()];
  }
  [host.get() layoutIfNeeded];
  return host;
}

/// Milliseconds, in the middle of many, for giving each cell another width and laying all of them out.
double passOf(UIView *host) {
  std::vector<double> times;
  for (int repetition = 0; repetition < kRepetitions; ++repetition) {
    @autoreleasepool {
      const CGFloat width = repetition % 2 == 0 ? 390 : 320;
      const auto start = std::chrono::steady_clock::now();
      for (UIView *cell in [host subviews]) {
        CGRect frame = [cell frame];
        frame.size.width = width;
        [cell setFrame:frame];
      }
      [host layoutIfNeeded];
      times.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
      const BenchCell *last = (BenchCell *)[[host subviews] lastObject];
      require(CGRectGetMaxX([last->toggle frame]) == width - 16, "the last cell was not laid out");
    }
  }
  return bench::median(times);
}

}  // namespace

int main() {
  @autoreleasepool {
    const auto few = columnOf([ConstraintCell class], 100);
    const auto many = columnOf([ConstraintCell class], 200);
    const auto byHand = columnOf([FrameCell class], 200);
    const BenchCell *one = (BenchCell *)[[many.get() subviews] lastObject];
    const BenchCell *other = (BenchCell *)[[byHand.get() subviews] lastObject];
    for (NSUInteger at = 0; at < [[one subviews] count]; ++at) {
      const CGRect frame = [[[one subviews] objectAtIndex:at] frame];
      require(CGRectEqualToRect(frame, [[[other subviews] objectAtIndex:at] frame]), "the frames are not the same");
    }
    const double fewTime = passOf(few.get());
    const double manyTime = passOf(many.get());
    const double handTime = passOf(byHand.get());
    std::printf("  layout of 100 cells: %.3f ms, of 200 cells: %.3f ms, of 200 by hand: %.3f ms\n", fewTime, manyTime,
                handTime);
    bench::Claims claims;
    claims.ratio("layout pass", "200/100", manyTime, fewTime, bench::atMost(kTwiceAsMany));
    claims.ratio("layout by constraints", "constraints/frames", manyTime, handTime, bench::atMost(kAgainstFrames));
    return claims.report(std::cout);
  }
}
