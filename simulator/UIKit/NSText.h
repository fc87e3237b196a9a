// Alignment and line breaking of text.
#pragma once

#import <UIKit/UIKitDefines.h>

typedef NS_ENUM(NSInteger, NSTextAlignment) {
  NSTextAlignmentLeft = 0,
  NSTextAlignmentCenter = 1,
  NSTextAlignmentRight = 2,
  NSTextAlignmentJustified = 3,
  NSTextAlignmentNatural = 4,
};
#define UITextAlignment NSTextAlignment

typedef NS_ENUM(NSInteger, NSLineBreakMode) {
  NSLineBreakByWordWrapping = 0,
  NSLineBreakByCharWrapping,
  NSLineBreakByClipping,
  NSLineBreakByTruncatingHead,
  NSLineBreakByTruncatingTail,
  NSLineBreakByTruncatingMiddle,
};

typedef NS_OPTIONS(NSInteger, NSUnderlineStyle) {
  NSUnderlineStyleNone = 0,
  NSUnderlineStyleSingle = 1,
};
