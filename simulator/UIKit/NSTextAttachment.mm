#import <UIKit/NSAttributedString+UIKit.h>
#import <UIKit/NSTextAttachment.h>

@implementation NSTextAttachment
@synthesize contents = _contents;
@synthesize fileType = _fileType;
@synthesize bounds = _bounds;
@synthesize image = _image;

+ (NSTextAttachment *)textAttachmentWithImage:(UIImage *)image {
  NSTextAttachment *attachment = [[[self alloc] initWithData:nil ofType:nil] autorelease];
  [attachment setImage:image];
  return attachment;
}

- (instancetype)init {
  return [self initWithData:nil ofType:nil];
}

- (instancetype)initWithData:(NSData *)contentData ofType:(NSString *)uti {
  if (!(self = [super init])) return nil;
  _contents = [contentData copy];
  _fileType = [uti copy];
  return self;
}

- (void)dealloc {
  [_contents release];
  [_fileType release];
  [_image release];
  [super dealloc];
}

- (UIImage *)image {
  if (!_image && [self contents]) _image = [[UIImage imageWithData:[self contents]] retain];
  return _image;
}

- (void)setImage:(UIImage *)image {
  if (image != _image) {
    [_image release];
    _image = [image retain];
  }
  [self setContents:nil];
}

@end

@implementation NSAttributedString (NSAttributedStringAttachmentConveniences)

+ (NSAttributedString *)attributedStringWithAttachment:(NSTextAttachment *)attachment {
  const unichar character = NSAttachmentCharacter;
  NSDictionary *attributes = attachment ? @{NSAttachmentAttributeName : attachment} : @{};
  return [[[NSAttributedString alloc] initWithString:[NSString stringWithCharacters:&character length:1]
                                          attributes:attributes] autorelease];
}

@end
