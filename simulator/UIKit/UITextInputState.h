// The keyboard traits of a text field or text view, kept once for both.
#pragma once

#import <Foundation/NotCarried.h>
#import <UIKit/UITextInputTraits.h>

namespace sim {

struct TextInputTraits {
  UITextAutocapitalizationType autocapitalizationType = UITextAutocapitalizationTypeSentences;
  UITextAutocorrectionType autocorrectionType = UITextAutocorrectionTypeDefault;
  UITextSpellCheckingType spellCheckingType = UITextSpellCheckingTypeDefault;
  UIKeyboardType keyboardType = UIKeyboardTypeDefault;
  UIKeyboardAppearance keyboardAppearance = UIKeyboardAppearanceDefault;
  UIReturnKeyType returnKeyType = UIReturnKeyDefault;
  bool enablesReturnKeyAutomatically = false;
  bool secureTextEntry = false;
};

}  // namespace sim

/// The accessors of UITextInputTraits over a `sim::TextInputTraits` called `TRAITS`.
#define SIM_TEXT_INPUT_TRAITS(TRAITS)                                                                            \
  -(UITextAutocapitalizationType)autocapitalizationType {                                                        \
    return TRAITS.autocapitalizationType;                                                                        \
  }                                                                                                              \
  -(void)setAutocapitalizationType : (UITextAutocapitalizationType)type {                                        \
    TRAITS.autocapitalizationType = type;                                                                        \
  }                                                                                                              \
  -(UITextAutocorrectionType)autocorrectionType {                                                                \
    return TRAITS.autocorrectionType;                                                                            \
  }                                                                                                              \
  -(void)setAutocorrectionType : (UITextAutocorrectionType)type {                                                \
    TRAITS.autocorrectionType = type;                                                                            \
  }                                                                                                              \
  -(UITextSpellCheckingType)spellCheckingType {                                                                  \
    return TRAITS.spellCheckingType;                                                                             \
  }                                                                                                              \
  -(void)setSpellCheckingType : (UITextSpellCheckingType)type {                                                  \
    TRAITS.spellCheckingType = type;                                                                             \
  }                                                                                                              \
  -(UIKeyboardType)keyboardType {                                                                                \
    return TRAITS.keyboardType;                                                                                  \
  }                                                                                                              \
  -(void)setKeyboardType : (UIKeyboardType)type {                                                                \
    TRAITS.keyboardType = type;                                                                                  \
  }                                                                                                              \
  -(UIKeyboardAppearance)keyboardAppearance {                                                                    \
    return TRAITS.keyboardAppearance;                                                                            \
  }                                                                                                              \
  -(void)setKeyboardAppearance : (UIKeyboardAppearance)appearance {                                              \
    sim::notCarried(@"UITextInputTraits.keyboardAppearance", @"The keyboard is the computer's own.");            \
    TRAITS.keyboardAppearance = appearance;                                                                      \
  }                                                                                                              \
  -(UIReturnKeyType)returnKeyType {                                                                              \
    return TRAITS.returnKeyType;                                                                                 \
  }                                                                                                              \
  -(void)setReturnKeyType : (UIReturnKeyType)type {                                                              \
    TRAITS.returnKeyType = type;                                                                                 \
  }                                                                                                              \
  -(BOOL)enablesReturnKeyAutomatically {                                                                         \
    return TRAITS.enablesReturnKeyAutomatically;                                                                 \
  }                                                                                                              \
  -(void)setEnablesReturnKeyAutomatically : (BOOL)enables {                                                      \
    sim::notCarried(@"UITextInputTraits.enablesReturnKeyAutomatically", @"The keyboard is the computer's own."); \
    TRAITS.enablesReturnKeyAutomatically = enables;                                                              \
  }                                                                                                              \
  -(BOOL)isSecureTextEntry {                                                                                     \
    return TRAITS.secureTextEntry;                                                                               \
  }                                                                                                              \
  -(void)setSecureTextEntry : (BOOL)secure {                                                                     \
    TRAITS.secureTextEntry = secure;                                                                             \
  }
