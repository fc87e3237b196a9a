// Exceptions of both languages through code of both kinds. This file is compiled as makers' code, like all tests beside
// it: there a handler of C++ takes objects and lets them pass (simulator/objc/Exceptions.mm). In code of the
// simulator's own kind, on GCC's runtime alone, the same handler ends the process.
#include <stdexcept>
#include <string>

#include "objc/ArcTest.h"
#include "objc/Language.h"
#include "objc/ours/Ours.h"

@interface Problem : NSException
@end

@implementation Problem
@end

namespace {

void raise(NSString *name) { [NSException raise:name format:@"raised"]; }

std::string caught(void (^body)(void)) {
  @try {
    body();
  } @catch (Problem *problem) {
    return "problem " + text(problem.name);
  } @catch (NSException *exception) {
    return text(exception.name);
  } @catch (id object) {
    return text([object description]);
  }
  return "";
}

Problem *problem() { return [[Problem alloc] initWithName:@"P" reason:@"why" userInfo:nil]; }

TEST(ExceptionTest, HandlersTakeWhatTheyName) {
  @autoreleasepool {
    EXPECT_EQ(caught(^{
                raise(@"A");
              }),
              "A");
    EXPECT_EQ(caught(^{
                @throw problem();
              }),
              "problem P");
    EXPECT_EQ(caught(^{
                @throw @"text";
              }),
              "text");
    EXPECT_EQ(caught(^{
                (void)[@[] objectAtIndex:3];
              }),
              "NSRangeException");
    EXPECT_EQ(caught(^{
              }),
              "");
  }
}

TEST(ExceptionTest, PassThroughCodeOfBothKinds) {
  @autoreleasepool {
    EXPECT_EQ(text(OursCatch(^{
                raise(@"Arc");
              })),
              "Arc");
    EXPECT_EQ(caught(^{
                OursRaise(@"Ours");
              }),
              "Ours");
    EXPECT_EQ(text(OursCatch(^{
                OursRaise(@"Twice");
              })),
              "Twice");
    BOOL reached = NO;
    BOOL *place = &reached;
    EXPECT_EQ(caught(^{
                OursFinally(
                    ^{
                      raise(@"Through");
                    },
                    place);
              }),
              "Through");
    EXPECT_TRUE(reached);
  }
}

TEST(ExceptionTest, InCWithArcAndWithout) {
  for (Class each : {[LanguageWithArc class], [LanguageWithoutArc class]}) {
    @autoreleasepool {
      id<Language> object = [each new];
      EXPECT_EQ(text([object caughtBy:^{
                  raise(@"A");
                }]),
                "A");
      EXPECT_EQ(text([object caughtBy:^{
                  OursRaise(@"B");
                }]),
                "B");
      EXPECT_EQ(text([object caughtBy:^{
                  @throw @"text";
                }]),
                "text");
      EXPECT_EQ(text([object caughtBy:^{
                  throw std::runtime_error("C++");
                }]),
                "something else");
      EXPECT_EQ(text([object caughtBy:^{
                }]),
                "");
      EXPECT_EQ(text([object caughtAgain:^{
                  raise(@"A");
                }]),
                "A");
      EXPECT_EQ(text([object caughtAgain:^{
                  @throw @"text";
                }]),
                "text");
      EXPECT_EQ(text([object caughtAgain:^{
                  throw 3;
                }]),
                "something else");
      EXPECT_EQ(text(OursCatch(^{
                  [object throwObject:problem()];
                })),
                "P");
      EXPECT_EQ(caught(^{
                  [object throwObject:@"text"];
                }),
                "text");
      BOOL reached = NO;
      BOOL *place = &reached;
      EXPECT_EQ(caught(^{
                  [object
                          run:^{
                            raise(@"Through");
                          }
                      finally:place];
                }),
                "Through");
      EXPECT_TRUE(reached);
      [object
              run:^{
              }
          finally:place];
    }
  }
}

TEST(ExceptionTest, OfCxxAreCaughtByTypeAndPassObjectiveC) {
  @autoreleasepool {
    id<Language> object = [LanguageWithArc new];
    BOOL reached = NO;
    BOOL *place = &reached;
    std::string what;
    try {
      [object
              run:^{
                throw std::runtime_error("through");
              }
          finally:place];
    } catch (const std::exception &error) {
      what = error.what();
    }
    EXPECT_EQ(what, "through");
    EXPECT_TRUE(reached);
    EXPECT_THROW(throw std::logic_error("GoogleTest's macros work here"), std::logic_error);
    EXPECT_THROW(([object
                                run:^{
                                  throw 3;
                                }
                     synchronizedOn:object]),
                 int);
  }
}

TEST(ExceptionTest, HandlersOfCxxTakeObjects) {
  @autoreleasepool {
    int step = 0;
    try {
      raise(@"A");
    } catch (const std::exception &) {
      step = 1;
    } catch (NSString *) {
      step = 2;
    } catch (NSException *exception) {
      step = [exception.name isEqualToString:@"A"] ? 3 : 4;
    }
    EXPECT_EQ(step, 3);
    try {
      OursRaise(@"B");
    } catch (...) {
      step = 5;
    }
    EXPECT_EQ(step, 5);
    EXPECT_EQ(caught(^{
                try {
                  raise(@"Again");
                } catch (...) {
                  throw;
                }
              }),
              "Again");
  }
}

TEST(ExceptionTest, HandlersNest) {
  @autoreleasepool {
    std::string trace;
    @try {
      @try {
        raise(@"outer");
      } @catch (NSException *outer) {
        trace += text(outer.name);
        try {
          throw std::runtime_error(" inner");
        } catch (const std::exception &inner) {
          trace += inner.what();
          @try {
            OursRaise(@" innermost");
          } @catch (id innermost) {
            trace += text([innermost name]);
          }
        } @
        throw;
      } @finally {
        trace += " finally";
      }
    } @catch (NSException *again) {
      trace += " " + text(again.name);
    }
    EXPECT_EQ(trace, "outer inner innermost finally outer");
  }
}

TEST(ExceptionTest, CxxThroughFinallyIsStillItself) {
  @autoreleasepool {
    bool reached = false;
    std::string what;
    try {
      @try {
        throw std::runtime_error("kept whole, with memory of its own for a text of this length");
      } @finally {
        reached = true;
      }
    } catch (const std::runtime_error &error) {
      what = error.what();
    }
    EXPECT_TRUE(reached);
    EXPECT_EQ(what.size(), 60u) << what;
    @try {
      @try {
        throw 7;
      } @catch (...) {
        @throw;
      }
    } @catch (...) {
      what = "anything";
    }
    EXPECT_EQ(what, "anything");
  }
}

TEST(ExceptionTest, WhatIsOnTheWayIsReleased) {
  int deaths = 0;
  struct Counted {
    int *count;
    ~Counted() { ++*count; }
  };
  @autoreleasepool {
    int *place = &deaths;
    EXPECT_EQ(caught(^{
                Mortal *mortal = [[Mortal alloc] initWithCounter:place];
                Counted counted{place};
                raise([mortal isKindOfClass:[Mortal class]] ? @"A" : @"B");
              }),
              "A");
  }
  EXPECT_EQ(deaths, 2);
}

TEST(ExceptionTest, LocksAreGivenBack) {
  for (Class each : {[LanguageWithArc class], [LanguageWithoutArc class]}) {
    @autoreleasepool {
      id<Language> object = [each new];
      NSObject *lock = [NSObject new];
      EXPECT_EQ(caught(^{
                  [object
                                 run:^{
                                   raise(@"Locked");
                                 }
                      synchronizedOn:lock];
                }),
                "Locked");
      __block int count = 0;
      Runner *other = [Runner start:^{
        for (int turn = 0; turn < 10000; ++turn) {
          @synchronized(lock) {
            ++count;
          }
        }
      }];
      for (int turn = 0; turn < 10000; ++turn) {
        [object
                       run:^{
                         ++count;
                       }
            synchronizedOn:lock];
      }
      [other join];
      EXPECT_EQ(count, 20000);
    }
  }
}

}  // namespace
