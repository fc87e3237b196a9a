#import <CoreGraphics/CGColorSpace.h>

@interface SIMColorSpace : NSObject {
 @public
  CGColorSpaceModel _model;
}
@end

@implementation SIMColorSpace
@end

CFStringRef const kCGColorSpaceSRGB = (CFStringRef) @"kCGColorSpaceSRGB";
CFStringRef const kCGColorSpaceDisplayP3 = (CFStringRef) @"kCGColorSpaceDisplayP3";
CFStringRef const kCGColorSpaceExtendedSRGB = (CFStringRef) @"kCGColorSpaceExtendedSRGB";
CFStringRef const kCGColorSpaceGenericGrayGamma2_2 = (CFStringRef) @"kCGColorSpaceGenericGrayGamma2_2";

namespace {

CGColorSpaceRef create(CGColorSpaceModel model) {
  SIMColorSpace *space = [[SIMColorSpace alloc] init];
  space->_model = model;
  return (CGColorSpaceRef)space;
}

}  // namespace

CGColorSpaceRef CGColorSpaceCreateDeviceRGB(void) { return create(kCGColorSpaceModelRGB); }
CGColorSpaceRef CGColorSpaceCreateDeviceGray(void) { return create(kCGColorSpaceModelMonochrome); }

CGColorSpaceRef CGColorSpaceCreateWithName(CFStringRef name) {
  for (const CFStringRef known : {kCGColorSpaceSRGB, kCGColorSpaceDisplayP3, kCGColorSpaceExtendedSRGB}) {
    if ([(NSString *)known isEqualToString:(NSString *)name]) return create(kCGColorSpaceModelRGB);
  }
  const bool isGrey = [(NSString *)kCGColorSpaceGenericGrayGamma2_2 isEqualToString:(NSString *)name];
  return isGrey ? create(kCGColorSpaceModelMonochrome) : nullptr;
}

CGColorSpaceRef CGColorSpaceRetain(CGColorSpaceRef space) { return (CGColorSpaceRef)[(id)space retain]; }
void CGColorSpaceRelease(CGColorSpaceRef space) { [(id)space release]; }

CGColorSpaceModel CGColorSpaceGetModel(CGColorSpaceRef space) {
  return space ? ((SIMColorSpace *)space)->_model : kCGColorSpaceModelUnknown;
}

size_t CGColorSpaceGetNumberOfComponents(CGColorSpaceRef space) {
  switch (CGColorSpaceGetModel(space)) {
    case kCGColorSpaceModelMonochrome: return 1;
    case kCGColorSpaceModelRGB: return 3;
    case kCGColorSpaceModelUnknown: return 0;
  }
}
