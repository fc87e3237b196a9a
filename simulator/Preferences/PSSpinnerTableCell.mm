#import <Preferences/PSSpinnerTableCell.h>

#import <UIKit/UIKit.h>

@implementation PSSpinnerTableCell

- (instancetype)initWithStyle:(UITableViewCellStyle)style
              reuseIdentifier:(NSString *)identifier
                    specifier:(PSSpecifier *)specifier {
  if (!(self = [super initWithStyle:style reuseIdentifier:identifier specifier:specifier])) return nil;

  _spinner = [[UIActivityIndicatorView alloc] initWithActivityIndicatorStyle:UIActivityIndicatorViewStyleMedium];
  [_spinner startAnimating];
  [self setAccessoryView:_spinner];
  [self setSelectionStyle:UITableViewCellSelectionStyleNone];
  return self;
}

- (void)dealloc {
  [_spinner release];
  [super dealloc];
}

- (UIActivityIndicatorView *)spinner {
  return _spinner;
}

@end
