// What recognisers measure fingers by: assumptions of ours where no property has the value, since Apple documents none.
#pragma once

#import <CoreGraphics/CoreGraphics.h>
#import <Foundation/Foundation.h>

#include <cmath>

namespace sim {

/// Points that the finger may move in a tap, and between two.
constexpr CGFloat kTapMovement = 45;
/// Seconds that a tap takes at most, and that lie between two at most.
constexpr NSTimeInterval kLongestTap = 0.75;
constexpr NSTimeInterval kBetweenTaps = 0.35;
/// Points from which on a finger that moves is dragging.
constexpr CGFloat kDragBegins = 10;
/// Points that a swipe goes at least along its direction and at most across it, and the seconds that it takes at most.
constexpr CGFloat kSwipeLength = 50;
constexpr CGFloat kSwipeWidth = 50;
constexpr NSTimeInterval kLongestSwipe = 0.5;
/// Seconds over which the velocity of a finger is taken.
constexpr NSTimeInterval kVelocitySpan = 0.1;
/// Points from the edge of the screen within which a drag from that edge begins.
constexpr CGFloat kScreenEdge = 20;

inline CGFloat distance(CGPoint one, CGPoint other) { return std::hypot(one.x - other.x, one.y - other.y); }

}  // namespace sim
