// From constraints to equations: gathers what hangs together with an item, and says it in four variables a member.
#pragma once

#import <UIKit/LayoutState.h>

#include <UIKit/LayoutSolver.hpp>

@class UIScrollView;

namespace sim {

enum class LayoutAxis : std::size_t { kHorizontal = 0, kVertical = 1 };

LayoutAxis layoutAxisOf(NSLayoutAttribute attribute);

/// Used once, for one problem: views that constraints place, guides and contents of scroll views are its unknowns, all
/// else is a constant. Main thread only.
class LayoutEquations final {
 public:
  /// With a root its size is unknown, and nothing outside it counts. Nothing is retained.
  explicit LayoutEquations(UIView *root);

  void gather(LayoutItem &start);
  /// The length of a gathered view is wished to be this.
  void wish(UIView *view, LayoutAxis axis, double length, double priority);
  /// Solves, with the heights that texts take in the widths that come out.
  LayoutSolution solution() const;

  int variableCount() const { return static_cast<int>(members_.size() * 4); }
  /// Each has the variables x, width, y, height.
  std::vector<LayoutItem *> &members() { return members_; }
  std::vector<LayoutEquation> &equations() { return equations_; }
  /// Of the members' contents.
  std::vector<unsigned long> &revisions() { return revisions_; }
  /// The constraint of an equation; nil for one of a content's size.
  NSLayoutConstraint *sourceOf(std::size_t number) const { return number < sources_.size() ? sources_[number] : nil; }

 private:
  /// A sum of variables and a constant.
  struct Sum {
    double constant = 0;
    std::vector<LayoutTerm> terms;

    Sum() = default;
    explicit Sum(double value) : constant(value) {}
    void add(const Sum &other, double factor);
  };
  /// Along one axis.
  struct Line {
    Sum start, length;
  };
  struct Made {
    unsigned long order;
    LayoutEquation equation;
    NSLayoutConstraint *source;
  };
  /// The equations that say how high a text is, whose constant follows its width.
  struct Wrapping {
    UIView *view;
    std::size_t place;
    std::size_t firstEquation, equationCount;
    CGSize unwrapped;
  };

  bool isUnknown(UIView *view) const;
  std::size_t placeFor(LayoutItem &item);
  Sum variable(LayoutItem &item, LayoutAxis axis, bool isLength);
  Sum lengthOf(UIView *view, LayoutAxis axis);
  Sum startOf(UIView *view, LayoutAxis axis);
  Line contentLine(UIScrollView *view, LayoutAxis axis);
  Line guideLine(UILayoutGuide *guide, LayoutAxis axis);
  Line lineIn(UIView *ancestor, const LayoutItem &item, const LayoutItem *other, LayoutAxis axis);
  Sum valueOf(const LayoutItem &item, NSLayoutAttribute attribute, UIView *ancestor, const LayoutItem *other);

  void takeMentionsOf(LayoutItem &member);
  void take(NSLayoutConstraint *constraint, const LayoutConstraintState &state);
  void add(Sum sum, LayoutRelation relation, double constant, double priority);
  void addContentOf(std::size_t place);
  void keepFromTurningOver(std::vector<LayoutEquation> &equations, LayoutSolution &solution) const;
  bool wrapTexts(std::vector<LayoutEquation> &equations, const LayoutSolution &solution) const;

  UIView *root_;
  unsigned long visit_;
  std::vector<LayoutItem *> members_;
  std::vector<Made> made_;
  std::vector<LayoutEquation> equations_;
  std::vector<NSLayoutConstraint *> sources_;
  std::vector<unsigned long> revisions_;
  std::vector<Wrapping> wrappings_;
};

}  // namespace sim
