#import <CoreImage/CIFilter.h>
#import <CoreImage/CIImage+Sim.h>

#include <objcxx/Retained.h>

struct sim::CIFilterState {
  objcxx::Retained<NSString> name;
  objcxx::Retained<CIImage> inputImage;
};

NSString *const kCIInputImageKey = @"inputImage";
NSString *const kCIInputRadiusKey = @"inputRadius";
NSString *const kCIOutputImageKey = @"outputImage";

namespace {

/// Pixels.
objcxx::Retained<NSNumber> defaultRadius() { return objcxx::share([NSNumber numberWithDouble:10]); }

}  // namespace

@interface SIMColorInvert : CIFilter
@end

@interface SIMGaussianBlur : CIFilter {
 @private
  objcxx::Retained<NSNumber> _inputRadius;
}
@end

@implementation CIFilter

+ (CIFilter *)filterWithName:(NSString *)name {
  Class kind = Nil;
  if ([name isEqualToString:@"CIColorInvert"]) kind = [SIMColorInvert class];
  if ([name isEqualToString:@"CIGaussianBlur"]) kind = [SIMGaussianBlur class];
  if (!kind) {
    NSLog(@"CIFilter: there is no filter \"%@\".", name);
    return nil;
  }
  CIFilter *filter = [[[kind alloc] init] autorelease];
  [filter setName:name];
  return filter;
}

- (instancetype)init {
  if (!(self = [super init])) return nil;

  _filterState = std::make_unique<sim::CIFilterState>();
  return self;
}

// Key-value coding reaches the inputs by their accessors only.
+ (BOOL)accessInstanceVariablesDirectly {
  return NO;
}

- (NSString *)name {
  return _filterState->name.get();
}

- (void)setName:(NSString *)name {
  _filterState->name = objcxx::adopt((NSString *)[name copy]);
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
  return _filterState->inputImage.get();
}

- (void)setInputImage:(CIImage *)image {
  _filterState->inputImage = objcxx::share(image);
}

- (CIImage *)outputImage {
  return nil;
}

- (id)copyWithZone:(NSZone *)zone {
  CIFilter *copy = [[[self class] allocWithZone:zone] init];
  *copy->_filterState = *_filterState;
  return copy;
}

@end

@implementation SIMColorInvert

- (CIImage *)outputImage {
  return [[self inputImage] sim_colorInverted];
}

@end

@implementation SIMGaussianBlur

// A filter has its defaults from the beginning, without being told.
- (instancetype)init {
  if (!(self = [super init])) return nil;
  _inputRadius = defaultRadius();
  return self;
}

- (NSArray *)inputKeys {
  return @[ kCIInputImageKey, kCIInputRadiusKey ];
}

- (void)setDefaults {
  [super setDefaults];
  _inputRadius = defaultRadius();
}

- (NSNumber *)inputRadius {
  return _inputRadius.get();
}

- (void)setInputRadius:(NSNumber *)radius {
  _inputRadius = objcxx::share(radius);
}

- (CIImage *)outputImage {
  return [[self inputImage] sim_blurredBySigma:[[self inputRadius] doubleValue]];
}

- (id)copyWithZone:(NSZone *)zone {
  SIMGaussianBlur *copy = [super copyWithZone:zone];
  copy->_inputRadius = _inputRadius;
  return copy;
}

@end
