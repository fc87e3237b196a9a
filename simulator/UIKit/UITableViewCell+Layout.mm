// Where the standard views of a row lie.
#import "LayoutProblem.h"
#import "UITableViewCellState.h"

#import <UIKit/UIImageView+Sim.h>
#import <UIKit/UIViewLayout.h>

#include <algorithm>

namespace {

constexpr CGFloat kMinimumHeight = 44;
constexpr CGFloat kVerticalPadding = 22;  // Above and below the text together.
constexpr CGFloat kImageGap = 15;
constexpr CGFloat kLabelGap = 8;
constexpr CGFloat kEditControlWidth = 38;
constexpr CGFloat kReorderControlWidth = 46;
constexpr CGFloat kValue2NameWidth = 91;

CGFloat widthOfAccessory(UITableViewCellAccessoryType type) {
  switch (type) {
    case UITableViewCellAccessoryNone: return 0;
    case UITableViewCellAccessoryDisclosureIndicator: return 11;
    case UITableViewCellAccessoryDetailDisclosureButton: return 44;
    case UITableViewCellAccessoryCheckmark: return 18;
    case UITableViewCellAccessoryDetailButton: return 25;
  }
  return 0;
}

CGSize fittingSize(UILabel *label, CGFloat width) {
  if ([[label text] length] == 0) return CGSizeZero;
  const CGSize size = [label sizeThatFits:CGSizeMake(std::max<CGFloat>(width, 0), CGFLOAT_MAX)];
  return CGSizeMake(std::min(size.width, std::max<CGFloat>(width, 0)), size.height);
}

/// The part of a row between its edit control and its accessory, and within it the part for text.
struct RowLayout {
  CGRect content{};
  CGRect accessory{};
  CGRect image{};
  CGFloat textStart = 0;  // Both in the coordinates of the content.
  CGFloat textEnd = 0;
};

RowLayout layOut(const sim::TableViewCellState &state, CGSize size) {
  RowLayout layout;
  const CGFloat margin = state.margin;
  const bool indents =
      state.editing && state.shouldIndentWhileEditing && state.editingStyle != UITableViewCellEditingStyleNone;
  const CGFloat left = state.coveredSides.left + (indents ? kEditControlWidth : 0);
  CGFloat right =
      size.width - state.coveredSides.right - (state.editing && state.showsReorderControl ? kReorderControlWidth : 0);

  UIView *view = (state.editing ? state.editingAccessoryView : state.accessoryView).get();
  const CGFloat accessoryWidth =
      view ? [view bounds].size.width
           : widthOfAccessory(state.editing ? state.editingAccessoryType : state.accessoryType);
  const bool hasAccessory = accessoryWidth > 0;
  if (hasAccessory) {
    const CGFloat height = view ? [view bounds].size.height : size.height;
    layout.accessory = CGRectMake(right - margin - accessoryWidth, (size.height - height) / 2, accessoryWidth, height);
    right = layout.accessory.origin.x;
  }
  layout.content = CGRectMake(left, 0, std::max<CGFloat>(right - left, 0), size.height);

  layout.textStart = margin + (CGFloat)state.indentationLevel * state.indentationWidth;
  layout.textEnd = layout.content.size.width - (hasAccessory ? kLabelGap : margin);
  if (UIImage *image = [state.imageView.get() sim_image]) {
    const CGSize natural = [image size];
    const CGFloat height = std::min(natural.height, size.height);
    const CGFloat width = natural.height > 0 ? natural.width * height / natural.height : 0;
    layout.image = CGRectMake(layout.textStart, (size.height - height) / 2, width, height);
    layout.textStart += width + kImageGap;
  }
  layout.textEnd = std::max(layout.textEnd, layout.textStart);
  return layout;
}

}  // namespace

@implementation UITableViewCell (Layout)

- (void)layoutSubviews {
  [super layoutSubviews];
  const auto &state = *_cellState;
  const CGRect bounds = [self bounds];
  const RowLayout layout = layOut(state, bounds.size);
  [state.backgroundView.get() setFrame:bounds];
  [state.contentView.get() setFrame:layout.content];
  [[self sim_shownAccessoryView] setFrame:layout.accessory];
  [state.imageView.get() setFrame:layout.image];

  const CGFloat height = bounds.size.height;
  const CGFloat start = layout.textStart;
  const CGFloat width = layout.textEnd - start;
  UILabel *text = state.textLabel.get();
  UILabel *detail = state.detailTextLabel.get();
  switch (state.style) {
    case UITableViewCellStyleDefault: [text setFrame:CGRectMake(start, 0, width, height)]; break;
    case UITableViewCellStyleValue1: {
      const CGFloat textWidth = fittingSize(text, width).width;
      const CGFloat rest = textWidth > 0 ? width - textWidth - kLabelGap : width;
      const CGFloat detailWidth = fittingSize(detail, rest).width;
      [text setFrame:CGRectMake(start, 0, textWidth, height)];
      [detail setFrame:CGRectMake(layout.textEnd - detailWidth, 0, detailWidth, height)];
      break;
    }
    case UITableViewCellStyleValue2: {
      const CGFloat nameWidth = std::min(kValue2NameWidth, width);
      [text setFrame:CGRectMake(start, 0, nameWidth, height)];
      [detail setFrame:CGRectMake(start + nameWidth + kLabelGap, 0, std::max<CGFloat>(width - nameWidth - kLabelGap, 0),
                                  height)];
      break;
    }
    case UITableViewCellStyleSubtitle: {
      const CGSize upper = fittingSize(text, width);
      const CGSize lower = fittingSize(detail, width);
      const CGFloat top = (height - upper.height - lower.height) / 2;
      [text setFrame:CGRectMake(start, top, upper.width, upper.height)];
      [detail setFrame:CGRectMake(start, top + upper.height, lower.width, lower.height)];
      break;
    }
  }
}

/// By the constraints in the content view when they say how high it is, else by the standard views.
- (CGSize)systemLayoutSizeFittingSize:(CGSize)targetSize
        withHorizontalFittingPriority:(UILayoutPriority)horizontalFittingPriority
              verticalFittingPriority:(UILayoutPriority)verticalFittingPriority {
  [self updateConstraintsIfNeeded];
  const auto &state = *_cellState;
  UIView *content = state.contentView.get();
  const CGFloat width = targetSize.width > 0 ? targetSize.width : [self bounds].size.width;
  if (!sim::constraintsSayHeight(content)) return [self sizeThatFits:CGSizeMake(width, targetSize.height)];
  const CGRect place = layOut(state, CGSizeMake(width, kMinimumHeight)).content;
  const CGFloat around = width - place.size.width;
  // Its safe area goes by where it lies.
  [content setFrame:{place.origin, {place.size.width, [content bounds].size.height}}];
  const CGSize fitting = [content systemLayoutSizeFittingSize:CGSizeMake(place.size.width, targetSize.height)
                                withHorizontalFittingPriority:horizontalFittingPriority
                                      verticalFittingPriority:verticalFittingPriority];
  return CGSizeMake(fitting.width + around, fitting.height);
}

/// The content view keeps what it shows where the standard views are.
- (UIEdgeInsets)sim_defaultMarginsOfSubview:(UIView *)subview {
  if (subview != _cellState->contentView.get()) return [super sim_defaultMarginsOfSubview:subview];
  const CGFloat margin = _cellState->margin;
  return UIEdgeInsetsMake(kVerticalPadding / 2, margin, kVerticalPadding / 2, margin);
}

- (CGSize)sizeThatFits:(CGSize)size {
  const auto &state = *_cellState;
  const CGFloat width = size.width > 0 ? size.width : [self bounds].size.width;
  const RowLayout layout = layOut(state, CGSizeMake(width, kMinimumHeight));
  const CGFloat textWidth = layout.textEnd - layout.textStart;
  const CGFloat upper = fittingSize(state.textLabel.get(), textWidth).height;
  const CGFloat lower = fittingSize(state.detailTextLabel.get(), textWidth).height;
  const CGFloat content = state.style == UITableViewCellStyleSubtitle ? upper + lower : std::max(upper, lower);
  return CGSizeMake(width, std::max(kMinimumHeight, content + kVerticalPadding));
}

@end
