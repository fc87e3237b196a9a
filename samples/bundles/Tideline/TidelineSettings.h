#import <UIKit/UIKit.h>

/// The domain that the tweak reads.
extern NSString *const TidelineDomain;

/// The settings, in a suite of defaults of their own.
@interface TidelineSettings : NSObject

@property(class, nonatomic, readonly) TidelineSettings *shared;
@property(nonatomic) NSInteger lines;
@property(nonatomic, strong) UIColor *colour;

- (id)objectForKey:(NSString *)key;
- (void)setObject:(id)object forKey:(NSString *)key;
- (void)removeAll;

@end
