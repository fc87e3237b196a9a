// Views as their siblings in UIKit and the host need them.
#pragma once

#import <QuartzCore/CALayer+Sim.h>
#import <UIKit/UIView.h>

@interface UIView (Sim)
/// Tells the view its controller, whose view it is: the next responder, told of layout by `viewWillLayoutSubviews` and
/// `viewDidLayoutSubviews`. Not owned; the controller clears it when it lets go of the view.
- (void)sim_setViewController:(UIResponder *)controller;
/// Whether a finger could reach the view: it and everything above it is shown and lets touches through.
- (BOOL)sim_acceptsTouches;
/// A number that is unique in the process, for the host's identifiers.
- (NSUInteger)sim_number;
@end

@interface UIView (SimTraits)
/// The traits around the receiver have changed from `previous`. The receiver and everything below, with the controllers
/// that the views belong to and their children, are told where theirs have: `traitCollectionDidChange:`.
- (void)sim_traitCollectionDidChange:(UITraitCollection *)previous;
/// The style that the receiver or its controller sets for the subtree; unspecified where neither does.
@property(nonatomic, readonly) UIUserInterfaceStyle sim_ownUserInterfaceStyle;
/// The style that the receiver, its controller or what is around them sets in place of the device's; unspecified where
/// nothing does.
@property(nonatomic, readonly) UIUserInterfaceStyle sim_setUserInterfaceStyle;
/// The receiver's own traits were `previous`: it and what lies in it is told, where they have changed.
- (void)sim_tellOfTraitsFrom:(UITraitCollection *)previous;
/// Runs `body` with the receiver's traits as the current ones.
- (void)sim_performWithTraits:(void (^)(void))body;
@end

/// A view keeps what it shares with its layer.
@interface UIView (SimLayer) <SIMLayerOwner>
/// The layer as far as it was made: asking makes none, unless the view's class has a layer of a kind of its own or
/// draws itself.
- (CALayer *)sim_layerIfMade;
/// Lays out what lies in the receiver, as its layer does: `layoutSublayersOfLayer:`, which calls `layoutSubviews`.
- (void)sim_layoutSublayers;
@end

@interface UIView (SimGestures)
/// Its recognisers and context menus know of no view any more.
- (void)sim_letGoOfRecognizers;
@end

@interface UIView (SimHierarchy)
/// For whoever changes the window of a whole tree: they run around the change, for the receiver and everything below.
- (void)sim_willMoveFromWindow:(UIWindow *)from toWindow:(UIWindow *)to;
- (void)sim_didMoveFromWindow:(UIWindow *)from toWindow:(UIWindow *)to;
@end
