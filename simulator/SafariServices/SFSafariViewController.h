// A web page over the application's own.
#pragma once

#import <UIKit/UIKit.h>

NS_ASSUME_NONNULL_BEGIN

@class SFSafariViewController;

@protocol SFSafariViewControllerDelegate <NSObject>
@optional
/// The person has closed the page.
- (void)safariViewControllerDidFinish:(SFSafariViewController *)controller;
/// Not loaded: the device has no network.
- (void)safariViewController:(SFSafariViewController *)controller didCompleteInitialLoad:(BOOL)didLoadSuccessfully;
@end

typedef NS_ENUM(NSInteger, SFSafariViewControllerDismissButtonStyle) {
  SFSafariViewControllerDismissButtonStyleDone,
  SFSafariViewControllerDismissButtonStyleClose,
  SFSafariViewControllerDismissButtonStyleCancel,
};

@interface SFSafariViewControllerConfiguration : NSObject <NSCopying> {
 @private
  BOOL _entersReaderIfAvailable;
  BOOL _barCollapsingEnabled;
}
@property(nonatomic) BOOL entersReaderIfAvailable;
@property(nonatomic) BOOL barCollapsingEnabled;
@end

/// Shows the name of the address's host, and notes the address as an opened one when it appears. Raises
/// NSInvalidArgumentException for an address that is not of http or https. Main thread only.
@interface SFSafariViewController : UIViewController {
 @private
  NSURL *_URL;
  __unsafe_unretained id<SFSafariViewControllerDelegate> _delegate;
  UIColor *_preferredBarTintColor;
  UIColor *_preferredControlTintColor;
  SFSafariViewControllerDismissButtonStyle _dismissButtonStyle;
  SFSafariViewControllerConfiguration *_configuration;
  BOOL _hasAppeared;
}
/// Not owned.
@property(nonatomic, assign, nullable) id<SFSafariViewControllerDelegate> delegate;
@property(nonatomic, retain, nullable) UIColor *preferredBarTintColor;
@property(nonatomic, retain, nullable) UIColor *preferredControlTintColor;
@property(nonatomic) SFSafariViewControllerDismissButtonStyle dismissButtonStyle;
@property(nonatomic, readonly, copy) SFSafariViewControllerConfiguration *configuration;
- (instancetype)initWithURL:(NSURL *)URL;
- (instancetype)initWithURL:(NSURL *)URL configuration:(SFSafariViewControllerConfiguration *)configuration;
@end

NS_ASSUME_NONNULL_END
