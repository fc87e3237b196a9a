// How a locale writes dates and times.
#pragma once

#import <Foundation/Foundation.h>

#include <objcxx/Retained.h>

namespace sim {

/// Asking for all of this takes some milliseconds. Main thread.
struct DateWords {
  explicit DateWords(NSLocale *locale);

  objcxx::Retained<NSArray> months;  ///< From January, as NSString.
  objcxx::Retained<NSArray> shortMonths;
  objcxx::Retained<NSArray> shortWeekdays;  ///< From Sunday.
  objcxx::Retained<NSString> beforeNoon;
  objcxx::Retained<NSString> afterNoon;
  bool hasHalves = false;     ///< The clock has 12 hours.
  bool isMonthFirst = false;  ///< Before the day.
  bool isYearFirst = false;
};

}  // namespace sim
