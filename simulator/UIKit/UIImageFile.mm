#import <UIKit/UIImageFile.h>

#include <cmath>
#include <initializer_list>

namespace sim {
namespace {

NSString *suffixOf(int scale) { return scale == 1 ? @"" : [NSString stringWithFormat:@"@%dx", scale]; }

// The scale that ends `stem`, 1 when none does.
int scaleIn(NSString *stem) {
  for (const int scale : {2, 3}) {
    if ([stem hasSuffix:suffixOf(scale)]) return scale;
  }
  return 1;
}

// Calls `find` with "@3x" and the like, the best for the screen first, until it gives a path.
template <typename Find>
ImageFile best(NSString *stem, CGFloat screenScale, Find find) {
  if (const int own = scaleIn(stem); own != 1) return {find(@""), CGFloat(own)};
  const int wanted = int(std::ceil(screenScale));
  const auto order = wanted >= 3   ? std::initializer_list<int>{3, 2, 1}
                     : wanted == 2 ? std::initializer_list<int>{2, 3, 1}
                                   : std::initializer_list<int>{1, 2, 3};
  for (const int scale : order) {
    if (NSString *path = find(suffixOf(scale))) return {path, CGFloat(scale)};
  }
  return {};
}

}  // namespace

ImageFile imageFileAt(NSString *path, CGFloat screenScale) {
  if ([path length] == 0) return {};
  NSString *stem = [path stringByDeletingPathExtension];
  NSString *extension = [path pathExtension];
  return best(stem, screenScale, [&](NSString *suffix) -> NSString * {
    NSString *name = [stem stringByAppendingString:suffix];
    NSString *candidate = [extension length] ? [name stringByAppendingPathExtension:extension] : name;
    BOOL isDirectory = NO;
    const BOOL exists = [[NSFileManager defaultManager] fileExistsAtPath:candidate isDirectory:&isDirectory];
    return exists && !isDirectory ? candidate : nil;
  });
}

ImageFile imageFileNamed(NSString *name, NSBundle *bundle, CGFloat screenScale) {
  if ([name length] == 0) return {};
  NSString *given = [name pathExtension];
  NSString *extension = [given length] ? given : @"png";
  NSString *stem = [given length] ? [name stringByDeletingPathExtension] : name;
  return best(stem, screenScale, [&](NSString *suffix) {
    return [bundle pathForResource:[stem stringByAppendingString:suffix] ofType:extension];
  });
}

}  // namespace sim
