#include "ZunoPrefs/theme/CallCounter.h"

#import <UIKit/UIKit.h>

#include <utility>

namespace testing_support {
namespace {

using Counted = void (*)(id, SEL, NSInteger);
using Present = void (*)(id, SEL, UIViewController *, BOOL, void (^)(void));

Counted counted = nullptr;
int count = 0;
Present present = nullptr;
std::string presentations;

void countCall(id self, SEL selector, NSInteger argument) {
  ++count;
  counted(self, selector, argument);
}

void notePresentation(id self, SEL selector, UIViewController *controller, BOOL animated, void (^completion)(void)) {
  if (!presentations.empty()) presentations += ", ";
  presentations += [NSStringFromClass([controller class]) UTF8String];
  if (animated) presentations += " animated";
  present(self, selector, controller, animated, completion);
}

template <typename Function>
IMP implementationOf(Function function) {
  return reinterpret_cast<IMP>(reinterpret_cast<void *>(function));
}

template <typename Function>
Function functionOf(IMP implementation) {
  return reinterpret_cast<Function>(reinterpret_cast<void *>(implementation));
}

}  // namespace

CallCounter::CallCounter(Class owner, SEL selector) : method_(class_getInstanceMethod(owner, selector)) {
  count = 0;
  counted = functionOf<Counted>(method_setImplementation(method_, implementationOf(countCall)));
}

CallCounter::~CallCounter() { method_setImplementation(method_, implementationOf(counted)); }

int CallCounter::calls() const { return count; }

Presentations::Presentations()
    : method_(class_getInstanceMethod([UIViewController class], @selector(presentViewController:animated:completion:))) {
  presentations.clear();
  present = functionOf<Present>(method_setImplementation(method_, implementationOf(notePresentation)));
}

Presentations::~Presentations() { method_setImplementation(method_, implementationOf(present)); }

std::string Presentations::take() { return std::exchange(presentations, {}); }

}  // namespace testing_support
