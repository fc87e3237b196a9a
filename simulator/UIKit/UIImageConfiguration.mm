#import <UIKit/UIImageConfiguration+Sim.h>

@implementation UIImageConfiguration

@synthesize traitCollection = _traitCollection;

+ (instancetype)sim_unspecified {
  return [[[self alloc] init] autorelease];
}

- (void)dealloc {
  [_traitCollection release];
  [super dealloc];
}

- (instancetype)init {
  return [super init];
}

- (instancetype)sim_changeableCopy {
  UIImageConfiguration *copy = [[self class] sim_unspecified];
  copy->_traitCollection = [_traitCollection retain];
  return copy;
}

- (instancetype)configurationWithTraitCollection:(UITraitCollection *)traitCollection {
  UIImageConfiguration *copy = [self sim_changeableCopy];
  [copy->_traitCollection release];
  copy->_traitCollection = [traitCollection retain];
  return copy;
}

- (instancetype)configurationByApplyingConfiguration:(UIImageConfiguration *)otherConfiguration {
  UITraitCollection *traits = [otherConfiguration traitCollection];
  return traits ? [self configurationWithTraitCollection:traits] : [self sim_changeableCopy];
}

- (id)copyWithZone:(NSZone *)zone {
  (void)zone;
  return [self retain];
}

- (BOOL)isEqual:(id)object {
  if (![object isMemberOfClass:[self class]]) return NO;
  UITraitCollection *other = [(UIImageConfiguration *)object traitCollection];
  return other == _traitCollection || [other isEqual:_traitCollection];
}

- (NSUInteger)hash {
  return [_traitCollection hash];
}

@end
