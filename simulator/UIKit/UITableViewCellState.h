// The state of a table row, shared by the files that implement it.
#pragma once

#import <UIKit/UIImageView.h>
#import <UIKit/UILabel.h>
#import <UIKit/UITableViewCell+Sim.h>
#include <objcxx/Retained.h>

#include <optional>

#include "SystemMargin.hpp"

namespace sim {

struct TableViewCellState {
  UITableViewCellStyle style = UITableViewCellStyleDefault;
  objcxx::Retained<NSString> reuseIdentifier;
  objcxx::Retained<UIView> contentView;
  objcxx::Retained<UILabel> textLabel;
  objcxx::Retained<UILabel> detailTextLabel;
  objcxx::Retained<UIImageView> imageView;
  objcxx::Retained<UIView> backgroundView;
  objcxx::Retained<UIView> selectedBackgroundView;
  objcxx::Retained<UIView> accessoryView;
  objcxx::Retained<UIView> editingAccessoryView;
  UITableViewCellAccessoryType accessoryType = UITableViewCellAccessoryNone;
  UITableViewCellAccessoryType editingAccessoryType = UITableViewCellAccessoryNone;
  UITableViewCellSelectionStyle selectionStyle = UITableViewCellSelectionStyleDefault;
  UITableViewCellEditingStyle editingStyle = UITableViewCellEditingStyleNone;
  NSInteger indentationLevel = 0;
  CGFloat indentationWidth = 10;
  CGFloat margin = marginForWidth(0);
  UIEdgeInsets coveredSides = UIEdgeInsetsZero;
  BOOL waiting = NO;
  std::optional<UIEdgeInsets> separatorInset;  ///< Nothing until set.
  BOOL selected = NO;
  BOOL highlighted = NO;
  BOOL editing = NO;
  BOOL showsReorderControl = NO;
  BOOL shouldIndentWhileEditing = YES;
};

}  // namespace sim
