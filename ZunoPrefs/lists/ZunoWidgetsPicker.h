#import "lists/EditorModel.h"
#import "lists/ZunoListEditor.h"

namespace zuno {

/// Pages of the switcher (`ZunoWidgetHolder`), under "EnabledWidgets".
struct WidgetsModel final : EditorModel {
  WidgetsModel();
};

}  // namespace zuno

/// The editor of the switcher's pages: the two built-in ones and every widget that the loader found.
@interface ZunoWidgetsPicker : UITableViewController <ZunoListEditor> {
 @private
  zuno::WidgetsModel _model;
  NSString *_prefsIdentifier;
  NSArray *_widgetsList;
}

/// The widgets (`ZunoWidgetHolder`) that the loader delivered.
@property(nonatomic, strong) NSArray *widgetsList;

/// Loads the widgets anew and fills both sections before it returns.
- (instancetype)initWithIdentifier:(NSString *)identifier;

- (void)loadWidgets;

@end
