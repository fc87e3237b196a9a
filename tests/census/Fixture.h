// A framework of one class for the test of the census.
#import <Foundation/Foundation.h>

struct FixtureState;

@interface Fixture : NSObject <NSCopying> {
  BOOL _deadSynthesized;
  BOOL _aliveSynthesized;
  FixtureState *_state;
}
@property(nonatomic) BOOL deadSynthesized;
@property(nonatomic) BOOL aliveSynthesized;
/// Read by its own accessors alone.
@property(nonatomic) int deadStored;
/// Read by -copyWithZone: and -dealloc too.
@property(nonatomic) int deadCopied;
/// Read by the getter of one that is dead.
@property(nonatomic) int deadBehindDead;
@property(nonatomic) int deadFront;
/// Read by a method that answers the bundle, which nobody else asks.
@property(nonatomic) int deadAnswered;
/// Passed on to one that is dead.
@property(nonatomic) int deadForwarded;
/// The setter does things, but not with what it is given.
@property(nonatomic) int deadBusy;
/// Read as that of another class, which has the same name.
@property(nonatomic) int deadNamesake;
@property(nonatomic) int aliveByField;
@property(nonatomic) int aliveByGetter;
@property(nonatomic) int aliveForwarded;
@property(nonatomic) int aliveInLog;
@property(nonatomic) int aliveThroughHelper;
@property(nonatomic, readonly) int unset;
- (void)setDead:(int)value forState:(int)state;
- (void)setAlive:(int)value forState:(int)state;
- (int)answer;
@end

@interface OtherFixture : NSObject {
  int _value;
}
@property(nonatomic) int deadNamesake;
@property(nonatomic) int aliveNamesakeOfOther;
@end
