// What views, layout guides and constraints remember of layout. Included by the sources of UIKit's layout and of
// UIView.
#pragma once

#import <UIKit/UILayoutGuide.h>
#import <UIKit/UIView.h>

#include <objcxx/Retained.h>

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace sim {

struct LayoutProblem;

/// A view or a layout guide, as constraints see it.
struct LayoutItem {
  explicit LayoutItem(UIView *aView) : view(aView) {}
  explicit LayoutItem(UILayoutGuide *aGuide) : guide(aGuide) {}
  LayoutItem(const LayoutItem &) = delete;
  LayoutItem &operator=(const LayoutItem &) = delete;
  /// Constraints that mention it forget it.
  ~LayoutItem();

  /// The view itself, or the view that owns the guide; nil for a guide that nobody owns.
  UIView *host() const;

  UIView *view = nil;                          // One of the two; not owned.
  UILayoutGuide *guide = nil;                  // Not owned.
  std::vector<NSLayoutConstraint *> mentions;  ///< All that name it, active or not. Not owned; they leave on their own.
  std::shared_ptr<LayoutProblem> problem;      ///< What it was solved in last; nothing before.
  std::size_t place = 0;                       ///< Among the members of `problem`.
  unsigned long visit = 0;                     ///< Of the problem that is being made, and the place in it.
  std::size_t visitPlace = 0;
};

struct LayoutConstraintState {
  LayoutItem *first = nullptr;  // Neither owned; cleared by the item.
  LayoutItem *second = nullptr;
  NSLayoutAttribute firstAttribute = NSLayoutAttributeNotAnAttribute;
  NSLayoutAttribute secondAttribute = NSLayoutAttributeNotAnAttribute;
  NSLayoutRelation relation = NSLayoutRelationEqual;
  CGFloat multiplier = 1;
  CGFloat constant = 0;
  UILayoutPriority priority = UILayoutPriorityRequired;
  bool shouldBeArchived = false;
  objcxx::Retained<NSString> identifier;
  UIView *holder = nil;     ///< Whose `constraints` it is among; nil while it is not active. Not owned.
  UIView *ancestor = nil;   ///< The nearest view that both items are in, while it is active. Not owned.
  unsigned long order = 0;  ///< Grows with each activation.
  unsigned long visit = 0;
};

enum class GuideKind { kCustom, kSafeArea, kMargins, kReadable, kTop, kBottom, kScrollContent, kScrollFrame };
constexpr std::size_t kGuideKinds = 8;

struct LayoutGuideState {
  explicit LayoutGuideState(UILayoutGuide *guide) : item(guide) {}
  LayoutItem item;
  GuideKind kind = GuideKind::kCustom;
  UIView *owner = nil;  // Not owned; cleared by the view.
  objcxx::Retained<NSString> identifier;
};

/// Of a view that has to do with constraints, margins or guides; others have none.
struct ViewLayout {
  explicit ViewLayout(UIView *view) : item(view) {}
  /// The view goes: nothing that outlives it points to it any more, and nobody is told.
  void letGo();

  LayoutItem item;
  bool translates = true;             ///< translatesAutoresizingMaskIntoConstraints.
  std::size_t activeConstraints = 0;  ///< Of the view or of its guides.
  std::size_t placingConstraints =
      0;  ///< Those of them that relate the view to something around it, or say how large it is.
  std::vector<objcxx::Retained<NSLayoutConstraint>> constraints;
  std::vector<objcxx::Retained<UILayoutGuide>> guides;
  std::array<objcxx::Retained<UILayoutGuide>, kGuideKinds> systemGuides;  ///< By kind, as far as they were asked for.
  std::array<std::optional<UILayoutPriority>, 2> hugging;                 ///< By axis.
  std::array<std::optional<UILayoutPriority>, 2> resistance;
  std::optional<CGSize> contentSize;  ///< The intrinsic one, until it is invalidated.
  unsigned long contentRevision = 0;
  std::optional<UIEdgeInsets> margins;
  std::optional<UIEdgeInsets> toldSafeArea;
  bool preservesSuperviewMargins = false;
  bool bearsOnProblems = false;  ///< The equations of some problem have numbers that follow from where the view lies.
  bool insetsMarginsFromSafeArea = true;
};

/// Whether the view lies where its constraints put it.
bool isPlacedByConstraints(UIView *view);

}  // namespace sim

@interface NSLayoutConstraint (State)
- (sim::LayoutConstraintState &)sim_state;
@end

@interface UILayoutGuide (State)
- (sim::LayoutGuideState &)sim_state;
/// A guide of the system's own.
- (instancetype)sim_initWithKind:(sim::GuideKind)kind owner:(UIView *)owner;
@end

@interface UIView (LayoutState)
/// Made at the first call.
- (sim::ViewLayout &)sim_layout;
/// nullptr where there is none.
- (sim::ViewLayout *)sim_layoutIfMade;
- (UILayoutGuide *)sim_guideOfKind:(sim::GuideKind)kind;
/// Constraints between the receiver's tree and what is around it go.
- (void)sim_dropConstraintsAround;
@end
