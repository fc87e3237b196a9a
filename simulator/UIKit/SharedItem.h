// What can be done with one of the things that a share sheet shares: texts, addresses, files and pictures.
#pragma once

#import <Foundation/Foundation.h>

namespace sim {

/// One line for people: the file's name, the address, the text, "Image".
NSString *titleOfSharedItem(id item);

/// What "copy" puts on the pasteboard, which holds texts alone: the text, the address, or what stands in a text file.
/// Autoreleased; nil for other items. Reads the file.
NSString *pasteboardTextOfSharedItem(id item);

/// Whether `pasteboardTextOfSharedItem` gives a text.
bool canCopySharedItem(id item);

/// The name under which the item is saved as a file; nil for items that are no files.
NSString *fileNameOfSharedItem(id item);

/// What is saved under that name, autoreleased: the file's bytes, or a PNG of the picture. nil, with an error that is a
/// sentence for people, when it cannot be read or is too large to be handed over.
NSData *contentOfSharedItem(id item, NSError **error);

}  // namespace sim
