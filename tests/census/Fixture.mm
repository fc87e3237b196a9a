#import "Fixture.h"

#include <map>

namespace sim {
void notCarried(NSString *what, NSString *instead);
}

struct FixtureState {
  int stored, copied, behind, front, answered, busy, namesake, field, getter, helper;
  bool needsLayout;
  std::map<int, int> dead, alive;
};

static int drawn;

template <typename Map>
static void put(Map &map, int state, int value) {
  map[state] = value;
}

@implementation Fixture

@synthesize deadSynthesized = _deadSynthesized;
@synthesize aliveSynthesized = _aliveSynthesized;

- (int)deadStored {
  return _state->stored;
}
- (void)setDeadStored:(int)value {
  if (value == _state->stored) return;
  _state->stored = value;
}

- (int)deadCopied {
  return _state->copied;
}
- (void)setDeadCopied:(int)value {
  _state->copied = value;
}
- (id)copyWithZone:(NSZone *)zone {
  Fixture *copy = [[Fixture alloc] init];
  copy->_state->copied = _state->copied;
  return copy;
}
- (void)dealloc {
  if (_state->copied) drawn = 0;
  [super dealloc];
}

- (int)deadBehindDead {
  return _state->behind;
}
- (void)setDeadBehindDead:(int)value {
  _state->behind = value;
}
- (int)deadFront {
  return _state->front + [self deadBehindDead];
}
- (void)setDeadFront:(int)value {
  _state->front = value;
}

- (int)deadAnswered {
  return _state->answered;
}
- (void)setDeadAnswered:(int)value {
  _state->answered = value;
}
- (int)answer {
  return _state->answered;
}

- (int)deadForwarded {
  return [self deadStored];
}
- (void)setDeadForwarded:(int)value {
  [self setDeadStored:value + 1];
}

- (int)deadBusy {
  return _state->busy;
}
- (void)setDeadBusy:(int)value {
  _state->busy = value;
  _state->needsLayout = true;
  [self draw];
}

- (int)deadNamesake {
  return _state->namesake;
}
- (void)setDeadNamesake:(int)value {
  _state->namesake = value;
}

- (int)aliveByField {
  return _state->field;
}
- (void)setAliveByField:(int)value {
  _state->field = value;
}

- (int)aliveByGetter {
  return _state->getter;
}
- (void)setAliveByGetter:(int)value {
  _state->getter = value;
}

- (int)aliveForwarded {
  return [self aliveByField];
}
- (void)setAliveForwarded:(int)value {
  [self setAliveByField:value];
}

- (int)aliveInLog {
  return 0;
}
- (void)setAliveInLog:(int)value {
  if (value) sim::notCarried(@"Fixture.aliveInLog", @"Nothing happens.");
}

- (int)aliveThroughHelper {
  return _state->helper;
}
- (void)setAliveThroughHelper:(int)value {
  [self keep:value];
}
- (void)keep:(int)value {
  _state->helper = value;
}

- (int)unset {
  return 0;
}

- (void)setDead:(int)value forState:(int)state {
  put(_state->dead, state, value);
}
- (void)setAlive:(int)value forState:(int)state {
  put(_state->alive, state, value);
}

- (void)draw {
  if (_state->needsLayout) drawn = _state->field + _state->helper + _state->alive[0];
}

@end

@implementation OtherFixture
- (int)deadNamesake {
  return _value;
}
- (void)setDeadNamesake:(int)value {
  (void)value;
}
- (int)aliveNamesakeOfOther {
  return _value;
}
- (void)setAliveNamesakeOfOther:(int)value {
  _value = value;
}
@end

int draw(Fixture *fixture, OtherFixture *other) {
  return [fixture aliveByGetter] + [fixture aliveSynthesized] + [other aliveNamesakeOfOther];
}
