// The sample photos: landscapes.
#pragma once

#include <string>
#include <vector>

namespace sim {

struct SamplePhoto {
  std::string fileName;
  std::string (*png)();
};

const std::vector<SamplePhoto>& samplePhotos();

}  // namespace sim
