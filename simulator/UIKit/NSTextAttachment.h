// Pictures in a text.
#pragma once

#import <CoreGraphics/CGGeometry.h>
#import <UIKit/UIImage.h>

enum {
  /// The character that an attachment stands for.
  NSAttachmentCharacter = 0xFFFC,
};

@interface NSTextAttachment : NSObject {
 @private
  NSData *_contents;
  NSString *_fileType;
  UIImage *_image;
  CGRect _bounds;
}
/// A template image, and a symbol that is no other, is drawn in the text's colour.
+ (NSTextAttachment *)textAttachmentWithImage:(UIImage *)image;
/// The bytes of a picture's file. `uti` is kept only: what the bytes are is told by themselves.
- (instancetype)initWithData:(NSData *)contentData ofType:(NSString *)uti;
@property(copy, nonatomic) NSData *contents;
@property(copy, nonatomic) NSString *fileType;
/// Its own, else that of `contents`. Setting it drops those.
@property(retain, nonatomic) UIImage *image;
/// Points; the origin is to the baseline, its y axis pointing up. Empty: the image's size on the baseline, or, of a
/// symbol without a size of its own, the size that goes with the text, in the middle of its capitals.
@property(nonatomic) CGRect bounds;
@end

@interface NSAttributedString (NSAttributedStringAttachmentConveniences)
+ (NSAttributedString *)attributedStringWithAttachment:(NSTextAttachment *)attachment;
@end
