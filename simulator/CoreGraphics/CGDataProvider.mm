#import <CoreGraphics/CGDataProvider+Sim.h>
#import <objcxx/Retained.h>

@interface SIMDataProvider : NSObject {
 @public
  // One of three: data, pixels, or bytes that belong to somebody who wants to hear of the end.
  objcxx::Retained<NSData> _data;
  sim::PixelSourcePtr _pixels;
  const void *_bytes;
  size_t _size;
  void *_info;
  CGDataProviderReleaseDataCallback _release;
}
@end

@implementation SIMDataProvider

- (void)dealloc {
  if (_release) _release(_info, _bytes, _size);
  [super dealloc];
}

@end

CGDataProviderRef CGDataProviderCreateWithCFData(CFDataRef data) {
  if (!data) return nullptr;
  SIMDataProvider *provider = [[SIMDataProvider alloc] init];
  provider->_data = objcxx::adopt((NSData *)[(NSData *)data copy]);
  return (CGDataProviderRef)provider;
}

CGDataProviderRef CGDataProviderCreateWithData(void *info, const void *data, size_t size,
                                               CGDataProviderReleaseDataCallback releaseData) {
  SIMDataProvider *provider = [[SIMDataProvider alloc] init];
  provider->_bytes = data;
  provider->_size = data ? size : 0;
  provider->_info = info;
  provider->_release = releaseData;
  return (CGDataProviderRef)provider;
}

CGDataProviderRef CGDataProviderRetain(CGDataProviderRef provider) { return (CGDataProviderRef)[(id)provider retain]; }
void CGDataProviderRelease(CGDataProviderRef provider) { [(id)provider release]; }

CFDataRef CGDataProviderCopyData(CGDataProviderRef provider) {
  auto *object = (SIMDataProvider *)provider;
  if (!object) return nullptr;
  if (object->_data) return (CFDataRef)[object->_data.get() retain];
  if (object->_pixels && !object->_pixels->bitmap()) return nullptr;
  const auto bytes = sim::bytesOf(provider);
  return (CFDataRef)[[NSData alloc] initWithBytes:bytes.data() length:bytes.size()];
}

namespace sim {

CGDataProviderRef createProvider(PixelSourcePtr source) {
  SIMDataProvider *provider = [[SIMDataProvider alloc] init];
  provider->_pixels = std::move(source);
  return (CGDataProviderRef)provider;
}

std::span<const std::uint8_t> bytesOf(CGDataProviderRef provider) {
  auto *object = (SIMDataProvider *)provider;
  if (!object) return {};
  if (object->_data) return {(const std::uint8_t *)[object->_data.get() bytes], [object->_data.get() length]};
  if (object->_pixels) {
    const BitmapPtr bitmap = object->_pixels->bitmap();  // The source keeps it.
    return bitmap ? bitmap->bytes() : std::span<const std::uint8_t>();
  }
  return {(const std::uint8_t *)object->_bytes, object->_size};
}

}  // namespace sim
