#import <Preferences/PSConfirmationSpecifier.h>

#import <Preferences/PSSpecifier+Sim.h>

namespace {

NSString *stringIn(NSDictionary *dictionary, NSString *key) {
  id value = [dictionary objectForKey:key];
  return [value isKindOfClass:[NSString class]] ? value : nil;
}

}  // namespace

@implementation PSConfirmationSpecifier
@synthesize title = _title;
@synthesize prompt = _prompt;
@synthesize okButton = _okButton;
@synthesize cancelButton = _cancelButton;

- (void)dealloc {
  [_title release];
  [_prompt release];
  [_okButton release];
  [_cancelButton release];
  [super dealloc];
}

- (void)setupWithDictionary:(NSDictionary *)dictionary {
  [self setTitle:stringIn(dictionary, PSConfirmationTitleKey)];
  [self setPrompt:stringIn(dictionary, PSConfirmationPromptKey)];
  [self setOkButton:stringIn(dictionary, PSConfirmationOKKey)];
  [self setCancelButton:stringIn(dictionary, PSConfirmationCancelKey)];
}

- (BOOL)isDestructive {
  return [self sim_flagForKey:PSConfirmationDestructiveKey fallback:NO];
}
@end
