#include "UIKit/DocumentTypes.hpp"

#include <gtest/gtest.h>

namespace {

using sim::isDocumentType;
using sim::isOfDocumentType;

TEST(DocumentTypesTests, dataAndItemsAreAllFiles) {
  for (const char* type : {"public.data", "public.item", "public.content"}) {
    for (const char* name : {"Dark.plist", "notes.txt", "README", ".hidden", "odd.", "x.unknown"}) {
      EXPECT_TRUE(isOfDocumentType(name, type)) << name << " " << type;
    }
  }
}

TEST(DocumentTypesTests, aTypeHasTheFilesWithItsExtensionWhateverTheirCase) {
  EXPECT_TRUE(isOfDocumentType("Dark.plist", "com.apple.property-list"));
  EXPECT_TRUE(isOfDocumentType("Dark.PLIST", "com.apple.property-list"));
  EXPECT_FALSE(isOfDocumentType("Dark.plist.txt", "com.apple.property-list"));
  EXPECT_FALSE(isOfDocumentType("plist", "com.apple.property-list"));
  EXPECT_FALSE(isOfDocumentType(".plist", "com.apple.property-list"));
  EXPECT_FALSE(isOfDocumentType("Dark.plis", "com.apple.property-list"));
}

TEST(DocumentTypesTests, aTypeHasTheFilesOfTheTypesBelowIt) {
  EXPECT_TRUE(isOfDocumentType("a.json", "public.text"));
  EXPECT_TRUE(isOfDocumentType("a.csv", "public.plain-text"));
  EXPECT_TRUE(isOfDocumentType("a.heic", "public.image"));
  EXPECT_TRUE(isOfDocumentType("a.mp3", "public.audiovisual-content"));
  EXPECT_FALSE(isOfDocumentType("a.json", "public.plain-text"));
  EXPECT_FALSE(isOfDocumentType("a.txt", "public.image"));
  EXPECT_FALSE(isOfDocumentType("a.png", "public.jpeg"));
}

TEST(DocumentTypesTests, aKindOfATypeThatTheNameDoesNotTellIsOffered) {
  EXPECT_TRUE(isOfDocumentType("Dark.plist", "com.apple.binary-property-list"));
  EXPECT_TRUE(isOfDocumentType("a.txt", "public.utf8-plain-text"));
  EXPECT_FALSE(isOfDocumentType("a.json", "com.apple.binary-property-list"));
}

TEST(DocumentTypesTests, anUnknownTypeHasNoFiles) {
  EXPECT_FALSE(isDocumentType("com.example.preset"));
  EXPECT_TRUE(isDocumentType("public.json"));
  EXPECT_FALSE(isOfDocumentType("a.preset", "com.example.preset"));
  EXPECT_FALSE(isOfDocumentType("a.plist", ""));
}

}  // namespace
