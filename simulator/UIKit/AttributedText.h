// Texts with attributes as they are laid out, drawn and shown.
#pragma once

#import <CoreGraphics/CGContext.h>
#import <UIKit/NSAttributedString+UIKit.h>
#import <UIKit/NSShadow.h>
#import <UIKit/TextLayout.hpp>
#import <UIKit/UIColor.h>
#import <UIKit/UIFont.h>
#import <UIKit/UIImage.h>

#include <objcxx/Retained.h>

#include <vector>

namespace sim {

/// What the text has where its attributes say nothing. nil: what drawing strings has.
struct TextDefaults {
  UIFont *font = nil;
  UIColor *color = nil;
  NSParagraphStyle *paragraph = nil;
  /// Of links, whatever colour they have; nil: the system's link colour, underlined.
  UIColor *linkColor = nil;
  /// Whether somebody but the system has set `color`, and the colours among the attributes.
  bool isOwnColor = false;
  bool hasOwnColors = true;
};

/// What a line break mode that shortens means: one line, or several of which the last is shortened.
enum class Shortening { toOneLine, ofLastLine };

/// How a run looks, beside where it stands.
struct RunLook {
  objcxx::Retained<UIFont> font;
  objcxx::Retained<UIColor> color;
  bool isOwnColor = false;  ///< Somebody but the system has set it.
  objcxx::Retained<UIColor> background;
  NSInteger underline = 0;  ///< NSUnderlineStyle.
  objcxx::Retained<UIColor> underlineColor;
  NSInteger strikethrough = 0;
  objcxx::Retained<UIColor> strikethroughColor;
  objcxx::Retained<NSShadow> shadow;
  objcxx::Retained<UIImage> image;  ///< Of an attachment, as it is drawn.
  objcxx::Retained<NSString> link;
};

/// A text of several runs, as it was when this was made. Main thread.
class AttributedText final {
 public:
  /// `scale`: what fonts, pictures and distances are multiplied by.
  AttributedText(NSAttributedString *text, const TextDefaults &defaults, Shortening shortening, double scale = 1);

  TextLayout layOut(const TextLimits &limits) const { return TextLayout(runs_, limits); }
  const std::vector<TextRun> &runs() const noexcept { return runs_; }
  const RunLook &look(std::size_t run) const { return looks_[run]; }
  /// Draws the layout, which is one of this text, with its top left corner at `origin`; nothing for NULL.
  void draw(CGContextRef context, const TextLayout &layout, CGPoint origin) const;

 private:
  void addRun(NSString *text, NSDictionary *attributes, const TextDefaults &defaults, Shortening shortening,
              double scale);

  std::vector<TextRun> runs_;
  std::vector<RunLook> looks_;
};

}  // namespace sim
