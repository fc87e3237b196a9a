#pragma once

#import <Preferences/PSHeaderFooterView.h>

@class UILabel;

/// A group's footer with a link in it, named by "footerCellClass". The group's "footerHyperlinkView_title" is the text,
/// or else its "footerText"; "footerHyperlinkView_linkRange" says what of it is the link, all of it where there is
/// none. A touch sends "footerHyperlinkView_action" to "footerHyperlinkView_target", or to the group's own target, or
/// opens "footerHyperlinkView_URL". Main thread only.
@interface PSFooterHyperlinkView : UIView <PSHeaderFooterView> {
 @private
  UILabel *_label;
  UIButton *_button;
  NSString *_text;
  NSRange _linkRange;
  __unsafe_unretained id _target;
  SEL _action;
  NSURL *_URL;
}
@property(nonatomic, copy) NSString *text;
@property(nonatomic) NSRange linkRange;
/// Not owned.
@property(nonatomic, assign) id target;
@property(nonatomic) SEL action;
@property(nonatomic, retain) NSURL *URL;
@end
