// Smaller additions: strings, directories, security-scoped files.
#import <Foundation/NSURL+Sim.h>
#import <Foundation/SIMDevice.h>

#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

#include <string>

namespace {

class StringSearchTest : public ObjCTest {};

TEST_F(StringSearchTest, StandardSearchIgnoresCaseAndDiacritics) {
  EXPECT_TRUE([@"Café Noir" localizedStandardContainsString:@"cafe n"]);
  EXPECT_TRUE([@"cafe" localizedStandardContainsString:@"CAFÉ"]);
  EXPECT_TRUE([@"a 😀 b" localizedStandardContainsString:@"😀"]);
  EXPECT_FALSE([@"Café" localizedStandardContainsString:@"tea"]);
  EXPECT_FALSE([@"Café" localizedStandardContainsString:@""]);
  NSString *nothing = nil;
  EXPECT_EQ(raisedBy([=] { [@"a" localizedStandardContainsString:nothing]; }), "NSInvalidArgumentException");
}

TEST_F(StringSearchTest, CaseInsensitiveSearchKeepsDiacritics) {
  EXPECT_TRUE([@"CAFÉ" localizedCaseInsensitiveContainsString:@"café"]);
  EXPECT_FALSE([@"Café" localizedCaseInsensitiveContainsString:@"cafe"]);
}

TEST_F(StringSearchTest, StandardOrderIsThatOfTheFinder) {
  NSArray *sorted = [@[ @"file10", @"File2", @"file1", @"École", @"eclair", @"zebra" ]
      sortedArrayUsingSelector:@selector(localizedStandardCompare:)];
  EXPECT_OBJC_EQ(sorted, (@[ @"eclair", @"École", @"file1", @"File2", @"file10", @"zebra" ]));
  EXPECT_EQ([@"a" localizedStandardCompare:@"a"], NSOrderedSame);
  EXPECT_NE([@"a" localizedStandardCompare:@"A"], NSOrderedSame);
}

TEST_F(StringSearchTest, Folding) {
  EXPECT_OBJC_EQ([@"Ärger 😀" stringByFoldingWithOptions:NSDiacriticInsensitiveSearch locale:nil], @"Arger 😀");
  EXPECT_OBJC_EQ([@"Ärger" stringByFoldingWithOptions:NSCaseInsensitiveSearch locale:nil], @"ärger");
}

TEST_F(StringSearchTest, LinesAreEnumeratedUntilStopped) {
  NSMutableArray *lines = [NSMutableArray array];
  [@"a\n\r\nb\rc" enumerateLinesUsingBlock:^(NSString *line, BOOL *) {
    [lines addObject:line];
  }];
  EXPECT_OBJC_EQ(lines, (@[ @"a", @"", @"b", @"c" ]));
  __block int count = 0;
  [@"a\nb\nc" enumerateLinesUsingBlock:^(NSString *, BOOL *stop) {
    *stop = ++count == 2;
  }];
  EXPECT_EQ(count, 2);
}

class DirectoryTest : public DeviceTest {};

TEST_F(DirectoryTest, TheUsersDirectoriesLieInTheDeviceFolder) {
  NSArray *urls = [[NSFileManager defaultManager] URLsForDirectory:NSDocumentDirectory inDomains:NSUserDomainMask];
  EXPECT_EQ([urls count], 1u);
  EXPECT_OBJC_EQ([[urls firstObject] path], path(@"/var/mobile/Documents"));
  EXPECT_OBJC_EQ([[NSFileManager defaultManager] URLsForDirectory:NSDocumentDirectory inDomains:NSSystemDomainMask],
                 @[]);
  EXPECT_OBJC_EQ([[NSFileManager defaultManager] URLsForDirectory:NSMusicDirectory inDomains:NSUserDomainMask], @[]);
}

class SecurityScopeTest : public ObjCTest {
 protected:
  void TearDown() override {
    [NSURL sim_resetSecurityScopes];
    ObjCTest::TearDown();
  }
};

TEST_F(SecurityScopeTest, AnOrdinaryFileHasNone) {
  NSURL *url = [NSURL fileURLWithPath:@"/tmp/a"];
  EXPECT_EQ(url.sim_securityScope, SIMSecurityScopeNone);
  EXPECT_FALSE([url startAccessingSecurityScopedResource]);
  [url stopAccessingSecurityScopedResource];
  EXPECT_EQ(url.sim_openAccesses, 0u);
}

TEST_F(SecurityScopeTest, AccessesOfOnePathAreCountedTogether) {
  NSURL *url = [NSURL fileURLWithPath:@"/tmp/a"], *same = [NSURL fileURLWithPath:@"/tmp/./a"];
  NSURL *other = [NSURL fileURLWithPath:@"/tmp/b"];
  url.sim_securityScope = SIMSecurityScopeReadable;
  EXPECT_EQ(same.sim_securityScope, SIMSecurityScopeReadable);
  EXPECT_TRUE([url startAccessingSecurityScopedResource]);
  EXPECT_TRUE([same startAccessingSecurityScopedResource]);
  EXPECT_FALSE([other startAccessingSecurityScopedResource]);
  EXPECT_EQ(url.sim_openAccesses, 2u);
  EXPECT_EQ([NSURL sim_openAccesses], 2u);
  [same stopAccessingSecurityScopedResource];
  [url stopAccessingSecurityScopedResource];
  [url stopAccessingSecurityScopedResource];
  EXPECT_EQ([NSURL sim_openAccesses], 0u);
}

TEST_F(SecurityScopeTest, ARefusedFileOpensNoAccess) {
  NSURL *url = [NSURL fileURLWithPath:@"/tmp/a"];
  url.sim_securityScope = SIMSecurityScopeRefused;
  EXPECT_FALSE([url startAccessingSecurityScopedResource]);
  EXPECT_EQ(url.sim_openAccesses, 0u);
}

}  // namespace
