// What a layout by constraints costs: of 100 and of 200 cells that get another width, each with a picture, two texts, a
// switch and ten constraints. About 2 means that the time is linear in the number of cells. Beside it the same frames
// set by hand, in `layoutSubviews`.
#import <UIKit/UIKit.h>
#import <objcxx/Retained.h>

#include "Claims.hpp"
#include "median.hpp"

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <vector>

namespace {

constexpr int kRepetitions = 41;
constexpr CGFloat kCellHeight = 60;

/// The most that the pass of twice as many cells may take.
constexpr double kTwiceAsMany = 2.2;

/// The same where all cells hang together, because the height of each is where the next one begins.
constexpr double kTwiceAsManyInAStack = 3;

/// The most that constraints may cost in place of frames. The frames that are set here come from a few additions and
/// the same views are moved, so that this is the price of the equations: some 12 times, 6 µs a cell.
constexpr double kAgainstFrames = 20;

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

/// But for half a pixel: what constraints place ends on whole ones.
bool isSame(CGRect a, CGRect b) {
  const CGFloat rounding = 0.5 / [[UIScreen mainScreen] scale] + 1e-6;
  return std::abs(a.origin.x - b.origin.x) < rounding && std::abs(a.origin.y - b.origin.y) < rounding &&
         std::abs(a.size.width - b.size.width) < rounding && std::abs(a.size.height - b.size.height) < rounding;
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

/// The cells in a stack view, which are as high as their texts, so that all of them hang together.
objcxx::Retained<UIView> stackOf(int count) {
  auto host = objcxx::adopt([[UIView alloc] initWithFrame:CGRectMake(0, 0, 320, 568)]);
  const auto stack = objcxx::adopt([[UIStackView alloc] initWithFrame:CGRectZero]);
  [stack.get() setAxis:UILayoutConstraintAxisVertical];
  [stack.get() setTranslatesAutoresizingMaskIntoConstraints:NO];
  [host.get() addSubview:stack.get()];
  [[[stack.get() topAnchor] constraintEqualToAnchor:[host.get() topAnchor]] setActive:YES];
  [[[stack.get() leadingAnchor] constraintEqualToAnchor:[host.get() leadingAnchor]] setActive:YES];
  [[[stack.get() trailingAnchor] constraintEqualToAnchor:[host.get() trailingAnchor]] setActive:YES];
  for (int row = 0; row < count; ++row) {
    const auto cell = objcxx::adopt((BenchCell *)[[ConstraintCell alloc] initWithFrame:CGRectZero]);
    [[[cell.get()->detail bottomAnchor] constraintEqualToAnchor:[cell.get() bottomAnchor] constant:-8] setActive:YES];
    [stack.get() addArrangedSubview:cell.get()];
  }
  [host.get() layoutIfNeeded];
  return host;
}

double millisecondsOf(void (^work)(void)) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

/// Gives each cell another width and lays all of them out; milliseconds.
double columnPass(UIView *host, CGFloat width) {
  const double time = millisecondsOf(^{
    for (UIView *cell in [host subviews]) {
      CGRect frame = [cell frame];
      frame.size.width = width;
      [cell setFrame:frame];
    }
    [host layoutIfNeeded];
  });
  const BenchCell *last = (BenchCell *)[[host subviews] lastObject];
  require(CGRectGetMaxX([last->toggle frame]) == width - 16, "the last cell was not laid out");
  return time;
}

/// Gives the host of a stack another width; milliseconds of all of its layout.
double stackPass(UIView *host, CGFloat width) {
  const double time = millisecondsOf(^{
    [host setFrame:CGRectMake(0, 0, width, 568)];
    [host layoutIfNeeded];
  });
  const BenchCell *last = (BenchCell *)[[[[host subviews] lastObject] subviews] lastObject];
  require(CGRectGetMaxX([last->toggle frame]) == width - 16, "the last cell was not laid out");
  require([last bounds].size.height > 50, "the last cell has no height");
  return time;
}

}  // namespace

int main() {
  @autoreleasepool {
    const auto few = columnOf([ConstraintCell class], 100);
    const auto many = columnOf([ConstraintCell class], 200);
    const auto byHand = columnOf([FrameCell class], 200);
    const auto fewStacked = stackOf(100);
    const auto manyStacked = stackOf(200);
    const BenchCell *one = (BenchCell *)[[many.get() subviews] lastObject];
    const BenchCell *other = (BenchCell *)[[byHand.get() subviews] lastObject];
    for (NSUInteger at = 0; at < [[one subviews] count]; ++at) {
      const CGRect frame = [[[one subviews] objectAtIndex:at] frame];
      require(isSame(frame, [[[other subviews] objectAtIndex:at] frame]), "the frames are not the same");
    }
    // In turns, so that what else the machine does falls on all of them.
    std::vector<double> fewTimes, manyTimes, handTimes, fewStackedTimes, manyStackedTimes;
    for (int repetition = 0; repetition < kRepetitions; ++repetition) {
      @autoreleasepool {
        const CGFloat width = repetition % 2 == 0 ? 390 : 320;
        fewTimes.push_back(columnPass(few.get(), width));
        manyTimes.push_back(columnPass(many.get(), width));
        handTimes.push_back(columnPass(byHand.get(), width));
      }
    }
    for (int repetition = 0; repetition < kRepetitions; ++repetition) {
      @autoreleasepool {
        const CGFloat width = repetition % 2 == 0 ? 390 : 320;
        fewStackedTimes.push_back(stackPass(fewStacked.get(), width));
        manyStackedTimes.push_back(stackPass(manyStacked.get(), width));
      }
    }
    const double fewTime = bench::median(fewTimes);
    const double manyTime = bench::median(manyTimes);
    const double handTime = bench::median(handTimes);
    const double fewStackedTime = bench::median(fewStackedTimes);
    const double manyStackedTime = bench::median(manyStackedTimes);
    std::printf("  layout of 100 cells: %.3f ms, of 200 cells: %.3f ms, of 200 by hand: %.3f ms\n", fewTime, manyTime,
                handTime);
    std::printf("  in a stack view: 100 cells %.3f ms, 200 cells %.3f ms\n", fewStackedTime, manyStackedTime);
    bench::Claims claims;
    claims.ratio("layout pass", "200/100", manyTime, fewTime, bench::atMost(kTwiceAsMany));
    claims.ratio("layout pass in a stack", "200/100", manyStackedTime, fewStackedTime,
                 bench::atMost(kTwiceAsManyInAStack));
    claims.ratio("layout by constraints", "constraints/frames", manyTime, handTime, bench::atMost(kAgainstFrames));
    return claims.report(std::cout);
  }
}
