#pragma once

#import <Preferences/PSSpecifier.h>

/// A row that asks before it acts.
@interface PSConfirmationSpecifier : PSSpecifier {
 @private
  NSString *_title;
  NSString *_prompt;
  NSString *_okButton;
  NSString *_cancelButton;
}
@property(nonatomic, retain) NSString *title;
@property(nonatomic, retain) NSString *prompt;
@property(nonatomic, retain) NSString *okButton;
@property(nonatomic, retain) NSString *cancelButton;
/// Reads the keys "title", "prompt", "okTitle" and "cancelTitle"; entries that are no strings are left out.
- (void)setupWithDictionary:(NSDictionary *)dictionary;
- (BOOL)isDestructive;
@end
