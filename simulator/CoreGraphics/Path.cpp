#include "CoreGraphics/Path.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <memory>
#include <numbers>

namespace sim {
namespace {

// Control points this far along the tangents make a cubic curve follow a quarter of a circle.
constexpr double kQuarterHandle = 0.5522847498307936;

struct ContextEnd {
  void operator()(cairo_t* context) const noexcept { cairo_destroy(context); }
};

// A context for questions about paths; nothing is drawn into it.
cairo_t* scratch() {
  static const std::unique_ptr<cairo_t, ContextEnd> context([] {
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1);
    cairo_t* made = cairo_create(surface);
    cairo_surface_destroy(surface);
    return made;
  }());
  cairo_new_path(context.get());
  return context.get();
}

}  // namespace

void Path::move(Point to) { elements_.push_back({Verb::move, {to}}); }

bool Path::line(Point to) {
  if (empty()) return false;
  elements_.push_back({Verb::line, {to}});
  return true;
}

bool Path::curve(Point control1, Point control2, Point to) {
  if (empty()) return false;
  elements_.push_back({Verb::curve, {control1, control2, to}});
  return true;
}

bool Path::quad(Point control, Point to) {
  const auto from = current();
  if (!from) return false;
  const auto towards = [&](Point end) {
    return Point{end.x + (control.x - end.x) * 2 / 3, end.y + (control.y - end.y) * 2 / 3};
  };
  return curve(towards(*from), towards(to), to);
}

void Path::close() {
  if (!empty() && elements_.back().verb != Verb::close) elements_.push_back({Verb::close, {}});
}

void Path::rect(const Box& box, const Transform& transform) {
  const double right = box.left + box.width;
  const double bottom = box.top + box.height;
  move(transform({box.left, box.top}));
  line(transform({right, box.top}));
  line(transform({right, bottom}));
  line(transform({box.left, bottom}));
  close();
}

void Path::ellipse(const Box& box, const Transform& transform) {
  const double x = box.left + box.width / 2;
  const double y = box.top + box.height / 2;
  const double dx = box.width / 2;
  const double dy = box.height / 2;
  const double hx = dx * kQuarterHandle;
  const double hy = dy * kQuarterHandle;
  const auto quarter = [&](Point c1, Point c2, Point to) { curve(transform(c1), transform(c2), transform(to)); };
  move(transform({x + dx, y}));
  quarter({x + dx, y + hy}, {x + hx, y + dy}, {x, y + dy});
  quarter({x - hx, y + dy}, {x - dx, y + hy}, {x - dx, y});
  quarter({x - dx, y - hy}, {x - hx, y - dy}, {x, y - dy});
  quarter({x + hx, y - dy}, {x + dx, y - hy}, {x + dx, y});
  close();
}

void Path::roundedRect(const Box& box, const std::array<double, 4>& radii, const Transform& transform) {
  const double limit = std::min(std::abs(box.width), std::abs(box.height)) / 2;
  std::array<double, 4> cut;
  std::transform(radii.begin(), radii.end(), cut.begin(), [&](double r) { return r > 0 ? std::min(r, limit) : 0; });
  const auto [topLeft, topRight, bottomRight, bottomLeft] = cut;
  const double left = box.left, top = box.top, right = left + box.width, bottom = top + box.height;
  const double rest = 1 - kQuarterHandle;
  const auto to = [&](double x, double y) { line(transform({x, y})); };
  const auto corner = [&](Point c1, Point c2, Point end) {
    if (c1 != c2 || c2 != end) curve(transform(c1), transform(c2), transform(end));
  };
  move(transform({left + topLeft, top}));
  to(right - topRight, top);
  corner({right - topRight * rest, top}, {right, top + topRight * rest}, {right, top + topRight});
  to(right, bottom - bottomRight);
  corner({right, bottom - bottomRight * rest}, {right - bottomRight * rest, bottom}, {right - bottomRight, bottom});
  to(left + bottomLeft, bottom);
  corner({left + bottomLeft * rest, bottom}, {left, bottom - bottomLeft * rest}, {left, bottom - bottomLeft});
  to(left, top + topLeft);
  corner({left, top + topLeft * rest}, {left + topLeft * rest, top}, {left + topLeft, top});
  close();
}

void Path::roundedRect(const Box& box, double cornerWidth, double cornerHeight, const Transform& transform) {
  const double rx = std::min(std::max(cornerWidth, 0.0), std::abs(box.width) / 2);
  const double ry = std::min(std::max(cornerHeight, 0.0), std::abs(box.height) / 2);
  if (rx == 0 || ry == 0) return rect(box, transform);
  // A corner of equal radii, stretched vertically.
  const double stretch = ry / rx;
  const Transform stretched{transform.a,           transform.b,  transform.c * stretch,
                            transform.d * stretch, transform.tx, transform.ty};
  roundedRect({box.left, box.top / stretch, box.width, box.height / stretch}, {rx, rx, rx, rx}, stretched);
}

void Path::arc(Point center, double radius, double start, double end, bool decreasing, const Transform& transform) {
  constexpr double turn = 2 * std::numbers::pi;
  double sweep = decreasing ? start - end : end - start;
  if (!std::isfinite(sweep) || !std::isfinite(radius)) return;
  sweep = sweep < 0 ? std::fmod(sweep, turn) + turn : std::min(sweep, turn);
  if (decreasing) sweep = -sweep;
  const int pieces = std::max(1, int(std::ceil(std::abs(sweep) / (turn / 4) - 1e-9)));
  const double step = sweep / pieces;
  const double handle = 4.0 / 3 * std::tan(step / 4) * radius;
  const auto at = [&](double angle) {
    return Point{center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
  };
  const Point first = transform(at(start));
  if (empty()) move(first);
  else line(first);
  for (int i = 0; i < pieces; ++i) {
    const double from = start + step * i;
    const double to = from + step;
    const Point p = at(from);
    const Point q = at(to);
    curve(transform({p.x - handle * std::sin(from), p.y + handle * std::cos(from)}),
          transform({q.x + handle * std::sin(to), q.y - handle * std::cos(to)}), transform(q));
  }
}

void Path::arcTo(Point corner, Point end, double radius) {
  const auto from = current();
  if (!from) return;
  const double inX = from->x - corner.x, inY = from->y - corner.y;
  const double outX = end.x - corner.x, outY = end.y - corner.y;
  const double in = std::hypot(inX, inY), out = std::hypot(outX, outY);
  const double across = inX * outY - inY * outX;
  if (!(radius > 0) || !(in > 0) || !(out > 0) || !(std::abs(across) > 1e-12 * in * out)) {
    line(corner);
    return;
  }
  // The circle touches both ways equally far from the corner.
  const double half = std::acos(std::clamp((inX * outX + inY * outY) / (in * out), -1.0, 1.0)) / 2;
  const double reach = radius / std::tan(half);
  const Point first{corner.x + inX / in * reach, corner.y + inY / in * reach};
  const Point last{corner.x + outX / out * reach, corner.y + outY / out * reach};
  const double centre = radius / std::sin(half);
  const double middleX = inX / in + outX / out, middleY = inY / in + outY / out;
  const double length = std::hypot(middleX, middleY);
  const Point center{corner.x + middleX / length * centre, corner.y + middleY / length * centre};
  arc(center, radius, std::atan2(first.y - center.y, first.x - center.x),
      std::atan2(last.y - center.y, last.x - center.x), across > 0);
}

Path Path::reversed() const {
  // Each piece from one move to the next is turned round; the pieces come in the order of their ends, the last first.
  Path result;
  for (auto end = elements_.size(); end > 0;) {
    auto start = end;
    while (start > 0 && elements_[--start].verb != Verb::move) continue;
    const bool closes = elements_[end - 1].verb == Verb::close;
    const auto last = end - (closes ? 1 : 0);
    const auto endOf = [&](std::size_t at) {
      return elements_[at].verb == Verb::curve ? elements_[at].points[2] : elements_[at].points[0];
    };
    result.move(endOf(last - 1));
    for (auto at = last - 1; at > start; --at) {
      const Element& element = elements_[at];
      if (element.verb == Verb::curve) result.curve(element.points[1], element.points[0], endOf(at - 1));
      else result.line(endOf(at - 1));
    }
    if (closes) result.close();
    end = start;
  }
  return result;
}

void Path::append(const Path& other, const Transform& transform) {
  const std::vector<Element> added = other.elements_;  // A path may be appended to itself.
  for (Element element : added) {
    for (Point& point : element.points) point = transform(point);
    elements_.push_back(element);
  }
}

void Path::transform(const Transform& transform) {
  for (Element& element : elements_) {
    for (Point& point : element.points) point = transform(point);
  }
}

std::optional<Point> Path::current() const noexcept {
  if (empty()) return std::nullopt;
  const Element& last = elements_.back();
  if (last.verb == Verb::curve) return last.points[2];
  if (last.verb != Verb::close) return last.points[0];
  const auto start =
      std::find_if(elements_.rbegin(), elements_.rend(), [](const auto& e) { return e.verb == Verb::move; });
  return start->points[0];
}

std::optional<Box> Path::controlBox() const noexcept {
  if (empty()) return std::nullopt;
  Point low = elements_.front().points[0];
  Point high = low;
  for (const Element& element : elements_) {
    const int count = element.verb == Verb::close ? 0 : element.verb == Verb::curve ? 3 : 1;
    for (int i = 0; i < count; ++i) {
      const Point p = element.points[i];
      low = {std::min(low.x, p.x), std::min(low.y, p.y)};
      high = {std::max(high.x, p.x), std::max(high.y, p.y)};
    }
  }
  return Box{low.x, low.y, high.x - low.x, high.y - low.y};
}

std::optional<Box> Path::outlineBox() const {
  if (empty()) return std::nullopt;
  cairo_t* context = scratch();
  appendTo(context);
  double left, top, right, bottom;
  cairo_path_extents(context, &left, &top, &right, &bottom);
  return Box{left, top, right - left, bottom - top};
}

bool Path::contains(Point point, bool evenOdd) const {
  cairo_t* context = scratch();
  appendTo(context);
  cairo_set_fill_rule(context, evenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
  return cairo_in_fill(context, point.x, point.y);
}

Path Path::part(double start, double end) const {
  cairo_t* context = scratch();
  appendTo(context);
  const std::unique_ptr<cairo_path_t, decltype(&cairo_path_destroy)> flat(cairo_copy_path_flat(context),
                                                                          cairo_path_destroy);
  struct Piece {
    Point from, to;
    double length;
  };
  std::vector<Piece> pieces;
  double length = 0;
  Point first, last;
  for (int at = 0; at < flat->num_data; at += flat->data[at].header.length) {
    const cairo_path_data_t* data = flat->data + at;
    const bool closes = data->header.type == CAIRO_PATH_CLOSE_PATH;
    const Point to = closes ? first : Point{data[1].point.x, data[1].point.y};
    if (data->header.type == CAIRO_PATH_MOVE_TO) {
      first = to;
    } else {
      pieces.push_back({last, to, std::hypot(to.x - last.x, to.y - last.y)});
      length += pieces.back().length;
    }
    last = to;
  }
  Path part;
  double passed = 0;
  for (const auto& [from, to, own] : pieces) {
    const double low = std::max(start * length - passed, 0.0);
    const double high = std::min(end * length - passed, own);
    passed += own;
    if (own <= 0 || low >= high) continue;
    const auto at = [&](double distance) {
      return Point{from.x + (to.x - from.x) * distance / own, from.y + (to.y - from.y) * distance / own};
    };
    if (part.current() != at(low)) part.move(at(low));
    part.line(high == own ? to : at(high));
  }
  return part;
}

std::string Path::svg() const {
  std::string text;
  const auto write = [&](char command, const auto& points, std::size_t count) {
    text += command;
    for (std::size_t at = 0; at < count; ++at) {
      for (const double number : {points[at].x, points[at].y}) {
        std::array<char, 32> digits;
        const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number);
        if (text.back() != command) text += ' ';
        text.append(digits.data(), end);
      }
    }
  };
  for (const auto& [verb, points] : elements_) {
    switch (verb) {
      case Verb::move: write('M', points, 1); break;
      case Verb::line: write('L', points, 1); break;
      case Verb::curve: write('C', points, 3); break;
      case Verb::close: text += 'Z'; break;
    }
  }
  return text;
}

void Path::appendTo(cairo_t* context) const {
  for (const auto& [verb, p] : elements_) {
    switch (verb) {
      case Verb::move: cairo_move_to(context, p[0].x, p[0].y); break;
      case Verb::line: cairo_line_to(context, p[0].x, p[0].y); break;
      case Verb::curve: cairo_curve_to(context, p[0].x, p[0].y, p[1].x, p[1].y, p[2].x, p[2].y); break;
      case Verb::close: cairo_close_path(context); break;
    }
  }
}

}  // namespace sim
