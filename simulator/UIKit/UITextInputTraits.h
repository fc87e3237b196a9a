// How a keyboard behaves for a text field or text view.
#pragma once

#import <UIKit/UIKitDefines.h>

typedef NS_ENUM(NSInteger, UITextAutocapitalizationType) {
  UITextAutocapitalizationTypeNone,
  UITextAutocapitalizationTypeWords,
  UITextAutocapitalizationTypeSentences,
  UITextAutocapitalizationTypeAllCharacters,
};

typedef NS_ENUM(NSInteger, UITextAutocorrectionType) {
  UITextAutocorrectionTypeDefault,
  UITextAutocorrectionTypeNo,
  UITextAutocorrectionTypeYes,
};

typedef NS_ENUM(NSInteger, UITextSpellCheckingType) {
  UITextSpellCheckingTypeDefault,
  UITextSpellCheckingTypeNo,
  UITextSpellCheckingTypeYes,
};

typedef NS_ENUM(NSInteger, UIKeyboardType) {
  UIKeyboardTypeDefault,
  UIKeyboardTypeASCIICapable,
  UIKeyboardTypeNumbersAndPunctuation,
  UIKeyboardTypeURL,
  UIKeyboardTypeNumberPad,
  UIKeyboardTypePhonePad,
  UIKeyboardTypeNamePhonePad,
  UIKeyboardTypeEmailAddress,
  UIKeyboardTypeDecimalPad,
  UIKeyboardTypeTwitter,
  UIKeyboardTypeWebSearch,
  UIKeyboardTypeASCIICapableNumberPad,
};

typedef NS_ENUM(NSInteger, UIKeyboardAppearance) {
  UIKeyboardAppearanceDefault,
  UIKeyboardAppearanceDark,
  UIKeyboardAppearanceLight,
};

typedef NS_ENUM(NSInteger, UIReturnKeyType) {
  UIReturnKeyDefault,
  UIReturnKeyGo,
  UIReturnKeyGoogle,
  UIReturnKeyJoin,
  UIReturnKeyNext,
  UIReturnKeyRoute,
  UIReturnKeySearch,
  UIReturnKeySend,
  UIReturnKeyYahoo,
  UIReturnKeyDone,
  UIReturnKeyEmergencyCall,
  UIReturnKeyContinue,
};

@protocol UITextInputTraits <NSObject>
@optional
@property(nonatomic) UITextAutocapitalizationType autocapitalizationType;
@property(nonatomic) UITextAutocorrectionType autocorrectionType;
@property(nonatomic) UITextSpellCheckingType spellCheckingType;
@property(nonatomic) UIKeyboardType keyboardType;
@property(nonatomic) UIKeyboardAppearance keyboardAppearance;
@property(nonatomic) UIReturnKeyType returnKeyType;
@property(nonatomic) BOOL enablesReturnKeyAutomatically;
@property(nonatomic, getter=isSecureTextEntry) BOOL secureTextEntry;
@end
