#import <Foundation/Foundation.h>
#import <UIKit/UIKit.h>

/// What a widget's principal class adopts: a page that the app switcher shows beside its own.
///
/// The class is named by the bundle's Info key "ZunoWidgetClass" and made with plain alloc/init. All messages come on
/// the main thread.
@protocol ZunoWidgetProtocol <NSObject>

@required
/// Builds the widget's views to fill `frame`, in points. Sent once, before the page is first shown.
- (void)setupWithFrame:(CGRect)frame;
/// The widget's root view; nil until the widget has been set up.
- (id)contentView;
/// Whether the widget is the page currently shown.
@property(nonatomic) BOOL isActivePage;
- (BOOL)isActivePage;
- (void)setIsActivePage:(BOOL)isActivePage;

@optional
/// The switcher scrolled this page into view.
- (void)didScrollToView;
/// The switcher scrolled away from this page.
- (void)didScrollAwayFromView;
/// The switcher's main view has been hidden.
- (void)ZunoViewDidHide:(BOOL)hidden;
/// The page stopped being visible.
- (void)viewDidDisappear;
/// The page became visible.
- (void)viewDidAppear;

@end
