// Table rows as the automation interface shows them.
#pragma once

#import <UIKit/UIKit.h>

#include <cstdint>

#include "base/JsonText.hpp"

namespace sim {

class ImageStore;

/// Writes the sections of `table`, which belongs to page `page`, with every row. Asks the data source for the cells of
/// the rows that it describes: in a long table those around what is on screen; of the others there is an outline.
void writeSections(JsonText& out, UITableView* table, std::uint32_t page, ImageStore& images);

}  // namespace sim
