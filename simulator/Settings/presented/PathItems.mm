#import "Settings/presented/PathItems.h"

#import "Settings/ImageStore.h"
#import "Settings/JsonValues.h"

namespace sim {

void writePathItems(JsonText &out, NSArray *paths, std::uint32_t number, NSString *pictureFolder, ImageStore &images) {
  out.beginArray();
  std::uint32_t index = 0;
  for (NSString *path in paths) {
    out.beginObject();
    out.name("id").string(ElementId{ElementKind::kSheetItem, number, 0, index++}.text());
    writeText(out.name("title"), [path lastPathComponent]);
    writeText(out.name("path"), path);
    out.name("image");
    if (pictureFolder) {
      images.writeThumbnail(out, [pictureFolder stringByAppendingPathComponent:path]);
    } else {
      out.null();
    }
    out.endObject();
  }
  out.endArray();
}

NSString *pathNamed(const ElementId &place, NSArray *paths) {
  if (place.kind != ElementKind::kSheetItem || place.index >= [paths count]) return nil;
  return [paths objectAtIndex:place.index];
}

}  // namespace sim
