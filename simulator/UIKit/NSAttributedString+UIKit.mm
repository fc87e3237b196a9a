#import <UIKit/AttributedText.h>
#import <UIKit/NSAttributedString+UIKit.h>
#import <UIKit/UIGraphics.h>

NSAttributedStringKey const NSFontAttributeName = @"NSFont";
NSAttributedStringKey const NSParagraphStyleAttributeName = @"NSParagraphStyle";
NSAttributedStringKey const NSForegroundColorAttributeName = @"NSColor";
NSAttributedStringKey const NSBackgroundColorAttributeName = @"NSBackgroundColor";
NSAttributedStringKey const NSKernAttributeName = @"NSKern";
NSAttributedStringKey const NSStrikethroughStyleAttributeName = @"NSStrikethrough";
NSAttributedStringKey const NSUnderlineStyleAttributeName = @"NSUnderline";
NSAttributedStringKey const NSUnderlineColorAttributeName = @"NSUnderlineColor";
NSAttributedStringKey const NSStrikethroughColorAttributeName = @"NSStrikethroughColor";
NSAttributedStringKey const NSShadowAttributeName = @"NSShadow";
NSAttributedStringKey const NSAttachmentAttributeName = @"NSAttachment";
NSAttributedStringKey const NSLinkAttributeName = @"NSLink";
NSAttributedStringKey const NSBaselineOffsetAttributeName = @"NSBaselineOffset";

namespace {

/// A text and its lines in a size, of which 0 or less does not limit.
struct LaidOut {
  LaidOut(NSAttributedString *string, CGSize size, NSStringDrawingOptions options)
      : cuts(options & NSStringDrawingTruncatesLastVisibleLine),
        text(string, {}, cuts ? sim::Shortening::ofLastLine : sim::Shortening::toOneLine),
        layout(text.layOut({.width = options & NSStringDrawingUsesLineFragmentOrigin ? size.width : 0})) {
    if (cuts && size.height > 0) limitHeight(size);
  }

  /// To the lines that are whole within the height, at least one.
  void limitHeight(CGSize size) {
    int lines = 0;
    for (const sim::TextLine &line : layout.lines()) lines += line.top + line.height <= size.height ? 1 : 0;
    if (lines == int(layout.lines().size())) return;
    layout = text.layOut({.width = size.width, .lines = lines > 1 ? lines : 1});
  }

  CGSize size() const { return CGSizeMake(layout.width(), layout.height()); }
  void draw(CGPoint origin) const { text.draw(UIGraphicsGetCurrentContext(), layout, origin); }

  bool cuts;
  sim::AttributedText text;
  sim::TextLayout layout;
};

NSAttributedString *attributed(NSString *string, NSDictionary *attributes) {
  return [[[NSAttributedString alloc] initWithString:string attributes:attributes ?: @{}] autorelease];
}

}  // namespace

@implementation NSString (NSExtendedStringDrawing)

- (CGSize)sizeWithAttributes:(NSDictionary *)attributes {
  return [attributed(self, attributes) size];
}

- (CGRect)boundingRectWithSize:(CGSize)size
                       options:(NSStringDrawingOptions)options
                    attributes:(NSDictionary *)attributes
                       context:(NSStringDrawingContext *)context {
  return [attributed(self, attributes) boundingRectWithSize:size options:options context:context];
}

- (void)drawAtPoint:(CGPoint)point withAttributes:(NSDictionary *)attributes {
  [attributed(self, attributes) drawAtPoint:point];
}

- (void)drawInRect:(CGRect)rect withAttributes:(NSDictionary *)attributes {
  [attributed(self, attributes) drawInRect:rect];
}

- (void)drawWithRect:(CGRect)rect
             options:(NSStringDrawingOptions)options
          attributes:(NSDictionary *)attributes
             context:(NSStringDrawingContext *)context {
  [attributed(self, attributes) drawWithRect:rect options:options context:context];
}

@end

@implementation NSAttributedString (NSStringDrawing)

- (CGSize)size {
  return LaidOut(self, CGSizeZero, NSStringDrawingOptions(0)).size();
}

- (CGRect)boundingRectWithSize:(CGSize)size
                       options:(NSStringDrawingOptions)options
                       context:(NSStringDrawingContext *)context {
  (void)context;
  return {CGPointZero, LaidOut(self, size, options).size()};
}

- (void)drawAtPoint:(CGPoint)point {
  LaidOut(self, CGSizeZero, NSStringDrawingOptions(0)).draw(point);
}

- (void)drawInRect:(CGRect)rect {
  CGContextSaveGState(UIGraphicsGetCurrentContext());
  CGContextClipToRect(UIGraphicsGetCurrentContext(), rect);
  LaidOut(self, rect.size, NSStringDrawingUsesLineFragmentOrigin).draw(rect.origin);
  CGContextRestoreGState(UIGraphicsGetCurrentContext());
}

- (void)drawWithRect:(CGRect)rect options:(NSStringDrawingOptions)options context:(NSStringDrawingContext *)context {
  (void)context;
  const LaidOut laidOut(self, rect.size, options);
  if (laidOut.layout.lines().empty()) return;
  const bool isBox = options & NSStringDrawingUsesLineFragmentOrigin;
  laidOut.draw(CGPointMake(rect.origin.x, rect.origin.y - (isBox ? 0 : laidOut.layout.lines().front().baseline)));
}

@end
