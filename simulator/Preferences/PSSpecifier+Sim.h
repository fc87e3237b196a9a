// The simulator's own view of a specifier. Bundles never include this.
#pragma once

#import <Preferences/PSSpecifier.h>

/// Faults of a specifier that are logged once for each specifier.
typedef NS_OPTIONS(unsigned, SIMSpecifierFault) {
  SIMSpecifierFaultValue = 1U << 0,
  SIMSpecifierFaultEnabled = 1U << 1,
  SIMSpecifierFaultHeight = 1U << 2,
  SIMSpecifierFaultRange = 1U << 3,
  SIMSpecifierFaultTitle = 1U << 4,
  SIMSpecifierFaultView = 1U << 5
};

@interface PSSpecifier (Sim)
/// Clears the target of every living specifier that has this one; for targets that are about to be deallocated.
+ (void)sim_forgetTarget:(id)target;

/// The getter's value; nil without a getter, and when it raises (which is logged).
- (id)sim_value;
/// Loads the values and titles from the data source; nothing when it raises (which is logged).
- (void)sim_loadValuesAndTitles;
/// `sim_value` when it is nil or of one of the two classes (the second may be nil); otherwise nil, logged once.
- (id)sim_valueOfClass:(Class)first orClass:(Class)second;
/// Logs that the value is not what the cell type shows; once for each specifier.
- (void)sim_reportValue:(id)value;
/// YES the first time it is asked about a fault.
- (BOOL)sim_isFirst:(SIMSpecifierFault)fault;

/// The property when it is a string, else nil.
- (NSString *)sim_stringForKey:(NSString *)key;
/// The property when it is a number (strings such as "YES" and "1" count), else the fallback.
- (BOOL)sim_flagForKey:(NSString *)key fallback:(BOOL)fallback;
/// "enabled"; YES when it is absent or no flag (which is logged once).
- (BOOL)sim_isEnabled;
/// For log lines: the identifier, name or key, in quotation marks.
- (NSString *)sim_label;
@end

namespace sim {

/// Sends `action`, which takes nothing or the specifier, to `target`. NO with a log line when the target is nil or does
/// not answer it.
bool performAction(id target, SEL action, PSSpecifier *specifier);

/// The selector of a name from a property list; NULL for nil, an empty string and anything that is no string.
SEL selectorNamed(id name);

}  // namespace sim
