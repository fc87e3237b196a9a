// Comparison of property-list values by kind.
#pragma once

#import <Foundation/Foundation.h>

namespace fuzzing {

/// How exactly two values have to agree.
enum class Agreement {
  kExact,  ///< The integer 1 and the real 1.0 differ, and so do 0.0 and -0.0.
  kXML,    ///< As exact, but dates agree to the second: an XML property list holds no parts of one.
  kJSON,   ///< The integer 1 and the real 1.0 are the same: JSON writes both as 1.
};

/// Whether both are the same tree of values. A boolean equals no number, NaN equals NaN, nil equals nil.
bool same(id first, id second, Agreement agreement = Agreement::kExact);

}  // namespace fuzzing
