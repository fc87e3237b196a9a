#import <UIKit/UIKit.h>

/// The editor of the switcher's pages: the two built-in ones and every widget that the loader found.
///
/// Every tap and drag is written at once, as identifiers under "EnabledWidgets". Main thread only.
@interface ZunoWidgetsPicker : UITableViewController {
 @private
  NSMutableArray *_menuItems;
  NSMutableArray *_menuItemsDisabled;
  NSString *_prefsIdentifier;
  NSArray *_widgetsList;
}

/// The enabled pages (`ZunoWidgetHolder`) in display order, which is the stored order.
@property(nonatomic, strong) NSMutableArray *menuItems;
/// The disabled pages (`ZunoWidgetHolder`).
@property(nonatomic, strong) NSMutableArray *menuItemsDisabled;
/// The preference domain that names the file.
@property(nonatomic, strong) NSString *prefsIdentifier;
/// The widgets (`ZunoWidgetHolder`) that the loader delivered.
@property(nonatomic, strong) NSArray *widgetsList;

/// Loads the widgets anew and fills both sections before it returns.
- (instancetype)initWithIdentifier:(NSString *)identifier;

- (void)loadWidgets;
- (void)loadLists;
- (void)saveLists;
/// The built-in pages, made anew, then every loaded widget.
- (NSArray *)defaultItems;

/// Whether the image counts as dark; see `zuno::isImageDark`.
- (BOOL)isImageDark:(UIImage *)image;
/// The image with inverted colours; nil unless it was made from a Core Image image.
- (UIImage *)invertImage:(UIImage *)image;

@end
