// Geometric paths: moves, lines and cubic curves. Plain C++.
#pragma once

#include <cairo.h>

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace sim {

struct Point {
  double x = 0;
  double y = 0;

  friend bool operator==(const Point&, const Point&) = default;
};

struct Box {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
};

/// x' = a·x + c·y + tx, y' = b·x + d·y + ty.
struct Transform {
  double a = 1, b = 0, c = 0, d = 1, tx = 0, ty = 0;

  constexpr Point operator()(Point p) const noexcept { return {a * p.x + c * p.y + tx, b * p.x + d * p.y + ty}; }
};

class Path final {
 public:
  enum class Verb { move, line, curve, close };
  struct Element {
    Verb verb;
    std::array<Point, 3> points;  ///< One for a move or line, three for a curve, none for a close.

    friend bool operator==(const Element&, const Element&) = default;
  };

  void move(Point to);
  /// Lines and curves need a current point; without one they do nothing and answer false.
  bool line(Point to);
  bool curve(Point control1, Point control2, Point to);
  bool quad(Point control, Point to);
  void close();
  void rect(const Box& box, const Transform& transform = {});
  void ellipse(const Box& box, const Transform& transform = {});
  /// Radii for the corners top left, top right, bottom right, bottom left; each cut to half the shorter side.
  void roundedRect(const Box& box, const std::array<double, 4>& radii, const Transform& transform = {});
  void roundedRect(const Box& box, double cornerWidth, double cornerHeight, const Transform& transform = {});
  /// A line to the arc's start where there is a current point, then the arc; angles in radians, growing from x towards
  /// y. Nothing for numbers that are not finite.
  void arc(Point center, double radius, double start, double end, bool decreasing, const Transform& transform = {});
  /// A line to where a circle of `radius` touches the way from here to `corner`, and an arc to where it touches the way
  /// on to `end`; a line to the corner where there is none. Nothing without a current point.
  void arcTo(Point corner, Point end, double radius);
  void append(const Path& other, const Transform& transform = {});
  void transform(const Transform& transform);

  bool empty() const noexcept { return elements_.empty(); }
  /// Where the next element would start; nothing for an empty path.
  std::optional<Point> current() const noexcept;
  const std::vector<Element>& elements() const noexcept { return elements_; }
  /// Around every point, control points included; nothing for an empty path.
  std::optional<Box> controlBox() const noexcept;
  /// Around the outline; nothing for an empty path.
  std::optional<Box> outlineBox() const;
  bool contains(Point point, bool evenOdd) const;
  /// The part of the outline between two shares of its length, from 0 to 1, in straight pieces.
  Path part(double start, double end) const;
  /// The same outline from its end to its beginning.
  Path reversed() const;
  /// As SVG writes paths.
  std::string svg() const;
  /// Adds the path to the current path of `context`.
  void appendTo(cairo_t* context) const;

  friend bool operator==(const Path&, const Path&) = default;

 private:
  std::vector<Element> elements_;
};

}  // namespace sim
