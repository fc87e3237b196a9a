#import <CoreImage/CIFilter.h>
#import <CoreImage/CIImage+Sim.h>

NSString *const kCIInputImageKey = @"inputImage";
NSString *const kCIOutputImageKey = @"outputImage";

namespace {

NSString *const colorInvert = @"CIColorInvert";

}  // namespace

@implementation CIFilter

+ (CIFilter *)filterWithName:(NSString *)name {
  if (![name isEqualToString:colorInvert]) {
    NSLog(@"CIFilter: there is no filter \"%@\".", name);
    return nil;
  }
  CIFilter *filter = [[[self alloc] init] autorelease];
  [filter setName:name];
  return filter;
}

// Key-value coding reaches the inputs by their accessors only.
+ (BOOL)accessInstanceVariablesDirectly {
  return NO;
}

- (NSString *)name {
  return _name.get();
}

- (void)setName:(NSString *)name {
  _name = objcxx::adopt((NSString *)[name copy]);
}

- (NSArray *)inputKeys {
  return @[ kCIInputImageKey ];
}

- (NSArray *)outputKeys {
  return @[ kCIOutputImageKey ];
}

- (void)setDefaults {
}

- (CIImage *)inputImage {
  return _inputImage.get();
}

- (void)setInputImage:(CIImage *)image {
  _inputImage = objcxx::share(image);
}

- (CIImage *)outputImage {
  return [_inputImage.get() sim_colorInverted];
}

- (id)copyWithZone:(NSZone *)zone {
  CIFilter *copy = [[CIFilter allocWithZone:zone] init];
  copy->_name = _name;
  copy->_inputImage = _inputImage;
  return copy;
}

@end
