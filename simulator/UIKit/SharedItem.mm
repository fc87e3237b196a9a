#import "SharedItem.h"

#import "PickedFile.h"

#import <Foundation/FileAccess.h>
#import <UIKit/UIImage+Sim.h>

#include "base/UTF8.hpp"

#include <optional>
#include <string_view>

namespace sim {

namespace {

constexpr unsigned long long kLongestText = 64ull << 20;   // Bytes of a file that can be copied.
constexpr unsigned long long kLargestFile = 256ull << 20;  // Bytes of a file that can be saved.

bool isFile(id item) { return [item isKindOfClass:[NSURL class]] && [item isFileURL]; }

bool isLargerThan(unsigned long long limit, NSString *path) {
  NSString *real = [path stringByResolvingSymlinksInPath];
  return [[[NSFileManager defaultManager] attributesOfItemAtPath:real error:NULL] fileSize] > limit;
}

std::string_view textIn(const FileContent &content) {
  const auto bytes = content.bytes();
  return {reinterpret_cast<const char *>(bytes.data()), bytes.size()};
}

/// The file's content when it is a text in UTF-8.
std::optional<FileContent> textFile(NSURL *url) {
  if (isLargerThan(kLongestText, [url path])) return std::nullopt;
  auto content = contentOfFile([url path], nullptr);
  if (!content) return std::nullopt;
  const std::string_view text = textIn(*content);
  if (!isUTF8(text) || text.find('\0') != std::string_view::npos) return std::nullopt;
  return content;
}

}  // namespace

NSString *titleOfSharedItem(id item) {
  if (isFile(item)) return [[item path] lastPathComponent];
  if (NSString *text = pasteboardTextOfSharedItem(item)) return text;
  return [item isKindOfClass:[UIImage class]] ? @"Image" : NSStringFromClass([item class]);
}

NSString *pasteboardTextOfSharedItem(id item) {
  if ([item isKindOfClass:[NSString class]]) return item;
  if (![item isKindOfClass:[NSURL class]]) return nil;
  if (![item isFileURL]) return [item absoluteString];
  const auto content = textFile(item);
  if (!content) return nil;
  const std::string_view text = textIn(*content);
  return [[[NSString alloc] initWithBytes:text.data() length:text.size() encoding:NSUTF8StringEncoding] autorelease];
}

bool canCopySharedItem(id item) {
  return isFile(item) ? textFile(item).has_value() : pasteboardTextOfSharedItem(item) != nil;
}

NSString *fileNameOfSharedItem(id item) {
  if (isFile(item)) return [[item path] lastPathComponent];
  return [item isKindOfClass:[UIImage class]] ? @"Image.png" : nil;
}

NSData *contentOfSharedItem(id item, NSError **error) {
  NSString *name = fileNameOfSharedItem(item);
  NSData *content = nil;
  if ([item isKindOfClass:[UIImage class]]) {
    content = [item sim_encodedPNGWithLongestSide:0];
  } else if (isFile(item)) {
    if (isLargerThan(kLargestFile, [item path])) {
      fail(error, NSFileReadTooLargeError,
           [NSString stringWithFormat:@"“%@” is too large to be saved from here.", name]);
      return nil;
    }
    if (const auto file = contentOfFile([item path], nullptr)) {
      content = [NSData dataWithBytes:file->bytes().data() length:file->bytes().size()];
    }
  }
  if (!content) fail(error, NSFileReadUnknownError, [NSString stringWithFormat:@"“%@” cannot be read.", name]);
  return content;
}

}  // namespace sim
