#import "lists/EditorModel.h"

#import <QuartzCore/QuartzCore.h>

#import "core/KRBPreferenceManager.h"
#import "core/PreferenceFile.h"
#import "lists/ZunoListEditor.h"

namespace zuno {
namespace {

NSString *const kCellIdentifier = @"Cell";

/// Gives the cell's image the soft grey shadow of an app icon.
void styleIcon(UITableViewCell *cell) {
  UIImageView *icon = [cell imageView];
  CALayer *layer = [icon layer];
  [layer setShadowColor:[[UIColor grayColor] CGColor]];
  [layer setShadowOffset:CGSizeMake(0, 1)];
  [layer setShadowOpacity:0.3f];
  [layer setShadowRadius:1.0];
  [icon setClipsToBounds:NO];
  [icon setContentMode:UIViewContentModeScaleAspectFit];
}

void showPlaceholder(UITableViewCell *cell, NSString *text) {
  [[cell textLabel] setText:text];
  [[cell detailTextLabel] setText:@""];
  [[cell imageView] setImage:nil];
}

std::optional<RecordIdentifier> identifierFrom(id object) {
  if (![object isKindOfClass:[NSString class]]) return std::nullopt;
  return RecordIdentifier{objcxx::share((NSString *)object)};
}

}  // namespace

std::optional<RecordIdentifier> RecordArray::identifierAt(std::size_t row) const {
  return identifierFrom([(id<ZunoListRecord>)[array_.get() objectAtIndex:row] bundleIdentifier]);
}

RecordArray::Record RecordArray::take(std::size_t row) {
  Record record = at(row);
  [array_.get() removeObjectAtIndex:row];
  return record;
}

void EditorModel::load(NSArray *records, NSString *domain) {
  const bool isStored = !kind_.needsFile || PreferenceFile::ofDomain(domain).exists();
  id list = isStored ? [KRBPreferenceManager getPrefForKey:kind_.key] : nil;
  std::vector<RecordIdentifier> stored;
  if ([list isKindOfClass:[NSArray class]]) {
    for (id element in (NSArray *)list) {
      if (auto identifier = identifierFrom(element)) stored.push_back(std::move(*identifier));
    }
  }
  ListModel::load(stored, RecordArray([[records mutableCopy] autorelease]));
}

void EditorModel::save(NSString *domain) const {
  NSMutableArray *identifiers = [NSMutableArray arrayWithCapacity:enabled.size()];
  for (const RecordIdentifier &identifier : enabledIdentifiers()) [identifiers addObject:identifier.text.get()];
  PreferenceFile::ofDomain(domain).setValue(identifiers, kind_.key, Damaged::kLeaveAlone);
}

UITableViewCell *EditorModel::cell(UITableView *table, NSIndexPath *path) const {
  UITableViewCell *cell = [table dequeueReusableCellWithIdentifier:kCellIdentifier];
  if (!cell) {
    cell = [[[UITableViewCell alloc] initWithStyle:UITableViewCellStyleSubtitle
                                   reuseIdentifier:kCellIdentifier] autorelease];
  }
  const RecordArray &records = list([path section]);
  if (records.size() == 0) {
    showPlaceholder(cell, [path section] == kEnabledSection ? kind_.enabledEmpty : kind_.disabledEmpty);
  } else {
    kind_.show(records.at(static_cast<std::size_t>([path row])).get(), cell);
    styleIcon(cell);
  }
  return cell;
}

NSString *sectionTitle(NSInteger section) {
  return section == kEnabledSection ? @"Enabled - Tap/Drag to disable." : @"Disabled - Tap/Drag to enable.";
}

void prepareForEditing(UITableView *table) {
  [table setEditing:YES animated:NO];
  [table setAllowsSelectionDuringEditing:YES];
}

}  // namespace zuno
