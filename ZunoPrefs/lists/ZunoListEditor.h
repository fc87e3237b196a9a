#import <UIKit/UIKit.h>

/// What a list editor needs of a record: its identity.
@protocol ZunoListRecord <NSObject>
- (NSString *)bundleIdentifier;
@end

/// A page that edits an ordered list: the enabled records and, below them, all others. A tap takes a record to the
/// other section, a drag anywhere. Every change is written at once. Main thread only.
@protocol ZunoListEditor <NSObject>

/// The enabled records in display order, which is the stored order; nil until the records are known.
@property(nonatomic, strong) NSMutableArray *menuItems;
/// Every other record; nil until the records are known.
@property(nonatomic, strong) NSMutableArray *menuItemsDisabled;
/// The preference domain that names the file.
@property(nonatomic, strong) NSString *prefsIdentifier;

- (instancetype)initWithIdentifier:(NSString *)identifier;

/// Fills both sections anew and shows them.
- (void)loadLists;
/// Stores the enabled section.
- (void)saveLists;
/// Every record, in the order of the disabled section.
- (NSArray *)defaultItems;

/// Whether the image counts as dark; see `zuno::isImageDark`.
- (BOOL)isImageDark:(UIImage *)image;
/// The image with inverted colours; nil unless it was made from a Core Image image.
- (UIImage *)invertImage:(UIImage *)image;

@end
