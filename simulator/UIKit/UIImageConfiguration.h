// How an image is to be shown.
#pragma once

#import <Foundation/Foundation.h>
#import <UIKit/UIKitDefines.h>
#import <UIKit/UITraitCollection.h>

/// Immutable.
@interface UIImageConfiguration : NSObject <NSCopying> {
 @private
  UITraitCollection *_traitCollection;
}
+ (instancetype)new NS_UNAVAILABLE;
- (instancetype)init NS_UNAVAILABLE;
/// The traits that the image is for; their scale decides how many pixels a symbol has. nil: those of the main screen.
@property(nonatomic, readonly) UITraitCollection *traitCollection;
/// This configuration for other traits.
- (instancetype)configurationWithTraitCollection:(UITraitCollection *)traitCollection;
/// What `otherConfiguration` says, and where it says nothing, what this one does.
- (instancetype)configurationByApplyingConfiguration:(UIImageConfiguration *)otherConfiguration;
@end
