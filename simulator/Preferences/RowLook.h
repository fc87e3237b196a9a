// How a row looks and whether it can be tapped, as far as that follows from its specifier.
#pragma once

#import <Preferences/PSSpecifier.h>
#import <UIKit/UIKit.h>

namespace sim {

/// How a value looks as text; nil for what is neither text nor number.
NSString *textOf(id value);

/// The alignment that a property names by number or text.
NSTextAlignment alignmentFrom(id property);

/// Whether the row has an action of its own.
bool acts(PSSpecifier *specifier);

/// Whether a finger can press the row.
bool takesTaps(PSSpecifier *specifier);

/// Whether the row shows something or does something; what does neither is drawn disabled.
bool hasPurpose(PSSpecifier *specifier);

UIColor *titleColor(PSSpecifier *specifier, bool isEnabled);

/// Whether the row shows that it opens a page.
bool showsDisclosure(PSSpecifier *specifier);

}  // namespace sim
