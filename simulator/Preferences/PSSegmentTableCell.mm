#import <Preferences/PSSegmentTableCell.h>

#import <Preferences/PSSpecifier+Sim.h>
#import <Preferences/PSTableCell+Sim.h>
#import <UIKit/UIKit.h>

namespace {

constexpr CGFloat kHorizontalMargin = 16;
constexpr CGFloat kVerticalMargin = 6;

}  // namespace

@implementation PSSegmentTableCell

- (instancetype)initWithStyle:(UITableViewCellStyle)style
              reuseIdentifier:(NSString *)identifier
                    specifier:(PSSpecifier *)specifier {
  if (!(self = [super initWithStyle:style reuseIdentifier:identifier specifier:specifier])) return nil;

  [self setShouldHideTitle:YES];
  [self setSelectionStyle:UITableViewCellSelectionStyleNone];
  [[self contentView] addSubview:[self control]];
  return self;
}

- (UIControl *)newControl {
  return [[UISegmentedControl alloc] initWithItems:@[]];
}

- (id)controlValue {
  const NSInteger index = [(UISegmentedControl *)[self control] selectedSegmentIndex];
  NSArray *values = [[self specifier] values];
  return index >= 0 && static_cast<NSUInteger>(index) < [values count]
             ? [values objectAtIndex:static_cast<NSUInteger>(index)]
             : nil;
}

- (void)setValue:(id)value {
  [super setValue:value];
  NSArray *values = [[self specifier] values];
  if ([values count] == 0) return;
  NSUInteger index = value ? [values indexOfObject:value] : 0;
  if (index == NSNotFound) {
    [[self specifier] sim_reportValue:value];
    index = 0;
  }
  [(UISegmentedControl *)[self control] setSelectedSegmentIndex:static_cast<NSInteger>(index)];
}

- (void)refreshCellContentsWithSpecifier:(PSSpecifier *)specifier {
  UISegmentedControl *segments = (UISegmentedControl *)[self control];
  [segments removeAllSegments];
  for (id value in [specifier values]) {
    id title = [[specifier titleDictionary] objectForKey:value] ?: value;
    [segments insertSegmentWithTitle:[title isKindOfClass:[NSString class]] ? title : [title description]
                             atIndex:[segments numberOfSegments]
                            animated:NO];
  }
  [super refreshCellContentsWithSpecifier:specifier];
}

- (void)layoutSubviews {
  [super layoutSubviews];
  [[self control] setFrame:CGRectInset([[self contentView] bounds], kHorizontalMargin, kVerticalMargin)];
}

@end
