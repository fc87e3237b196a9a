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
  NSUnderlineStyleThick = 2,
  NSUnderlineStyleDouble = 9,
  NSUnderlineStylePatternSolid = 0,
  NSUnderlineStylePatternDot = 0x100,
  NSUnderlineStylePatternDash = 0x200,
  NSUnderlineStylePatternDashDot = 0x300,
  NSUnderlineStylePatternDashDotDot = 0x400,
  NSUnderlineStyleByWord = 0x8000,
};
