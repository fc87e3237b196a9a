// The simulator's own face of the looks of bars.
#pragma once

#import <UIKit/UIBarAppearance.h>
#import <UIKit/UIBarButtonItemAppearance.h>

@interface UIBarAppearance (Sim)
/// Whether what lies below the bar shows blurred.
@property(nonatomic, readonly) BOOL sim_blurs;
/// A background that is neither colour, picture nor blur.
@property(nonatomic, readonly) BOOL sim_isTransparent;
/// Whether there is a line under the bar, of the system's colour or another.
@property(nonatomic, readonly) BOOL sim_hasShadow;
/// A bar made it from what is set of it, and nobody has changed it since: it does not count as set. Copies take it
/// over.
@property(nonatomic) BOOL sim_isOffered;
/// Something has been set. Called by the setters of subclasses and of what belongs to them.
- (void)sim_didChange;
@end

@interface UIBarButtonItemAppearance (Sim)
/// Whose part this is; not owned, cleared by the owner. It is told of changes.
- (void)sim_setOwner:(UIBarAppearance *)owner;
@end
