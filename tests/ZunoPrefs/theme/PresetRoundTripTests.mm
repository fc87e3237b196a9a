// Presets between this bundle and other tools: what it exports they read, what they write it imports, with every key,
// value and type.
#import "theme/ZunoPresets+Sharing.h"

#import <Foundation/NSURL+Sim.h>

#include <fcntl.h>
#include <nlohmann/json.hpp>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <ctime>
#include <string>
#include <string_view>

#include "ZunoPrefs/theme/PresetsTest.h"

namespace {

/// The second implementation. `VALUE` is the preset of `original()` below; `lines` prints a preset with its types.
constexpr char kTool[] = R"python(
import base64, json, plistlib, sys

VALUE = {
    "ZunoPresetVersion": 1, "yes": True, "no": False, "one": 1, "zero": 0, "negative": -20,
    "largest": 2**63 - 1, "smallest": -2**63, "unsigned": 2**64 - 1, "beyond a double": 2**53 + 1,
    "real": 0.1, "tiny": 5e-324, "huge": 1.7976931348623157e308,
    "text": "\u201cquotes\u201d \" / \\ \n\t <&> \u00e9", "emoji \U0001F600": "\U0001F469\u200d\U0001F4BB", "": "",
    "backgroundImage": "aGVsbG8=",
    "list": [1, True, "a", [], [[2.5], {}], {"deep": [{"deeper": False}]}], "dictionary": {"a": {"b": {"c": [-1]}}},
}

def lines(value, path=""):
    if isinstance(value, dict):
        print(path, "dictionary", len(value))
        for key in sorted(value):
            lines(value[key], path + "/" + key)
    elif isinstance(value, list):
        print(path, "array", len(value))
        for index, item in enumerate(value):
            lines(item, path + "/" + str(index))
    else:
        print(path, type(value).__name__, ascii(value))

def text_of(value, **options):
    return base64.b64encode(json.dumps(value, **options).encode("utf-8", "surrogatepass")).decode()

def main(verb, path=None):
    if verb == "expected":
        lines(VALUE)
    elif verb == "read-string":
        with open(path) as file:
            lines(json.loads(base64.b64decode(file.read(), validate=True).decode("utf-8")))
    elif verb == "read-file":
        with open(path, "rb") as file:
            lines(plistlib.load(file))
    elif verb == "string":
        print(text_of(VALUE), end="")
    elif verb == "unescaped-string":
        print(text_of(VALUE, ensure_ascii=False, separators=(",", ":")), end="")
    elif verb in ("xml", "binary"):
        with open(path, "wb") as file:
            plistlib.dump(VALUE, file, fmt=plistlib.FMT_XML if verb == "xml" else plistlib.FMT_BINARY)
    else:
        sys.exit("no such verb: " + verb)

sys.stdout.reconfigure(encoding="utf-8")
main(*sys.argv[1:])
)python";

NSDictionary *original() {
  NSDictionary *deep = @{@"deep" : @[ @{@"deeper" : @(NO)} ]};
  return @{
    @"ZunoPresetVersion" : @1,
    @"yes" : [NSNumber numberWithBool:YES],
    @"no" : [NSNumber numberWithBool:NO],
    @"one" : @1,
    @"zero" : @0,
    @"negative" : @(-20),
    @"largest" : [NSNumber numberWithLongLong:INT64_MAX],
    @"smallest" : [NSNumber numberWithLongLong:INT64_MIN],
    @"unsigned" : [NSNumber numberWithUnsignedLongLong:UINT64_MAX],
    @"beyond a double" : [NSNumber numberWithLongLong:9007199254740993],
    @"real" : @0.1,
    @"tiny" : [NSNumber numberWithDouble:5e-324],
    @"huge" : [NSNumber numberWithDouble:1.7976931348623157e308],
    @"text" : @"“quotes” \" / \\ \n\t <&> é",
    @"emoji 😀" : @"👩‍💻",
    @"" : @"",
    @"backgroundImage" : @"aGVsbG8=",
    @"list" : @[ @1, [NSNumber numberWithBool:YES], @"a", @[], @[ @[ @2.5 ], @{} ], deep ],
    @"dictionary" : @{@"a" : @{@"b" : @{@"c" : @[ @(-1) ]}}},
  };
}

class PresetRoundTripTest : public PresetsTest {
 protected:
  void SetUp() override {
    PresetsTest::SetUp();
    script_ = [write(@"/tool.py", std::string_view(kTool)) UTF8String];
  }
  void TearDown() override {
    [NSURL sim_resetSecurityScopes];
    PresetsTest::TearDown();
  }

  /// What the command prints; the test fails when the command does. Paths of the device folder need no quoting.
  static std::string outputOf(const std::string &command) {
    // The sanitizers of this process are none of another program's business.
    FILE *pipe = ::popen(("env -u ASAN_OPTIONS -u LSAN_OPTIONS " + command).c_str(), "r");
    if (!pipe) return "";
    std::string output;
    char piece[4096];
    while (const size_t count = std::fread(piece, 1, sizeof piece, pipe)) output.append(piece, count);
    EXPECT_EQ(::pclose(pipe), 0) << command;
    return output;
  }
  /// What the second implementation prints.
  std::string tool(const std::string &verb, NSString *file = nil) {
    return outputOf("python3 " + script_ + " " + verb +
                    (file ? std::string(" ") + [file fileSystemRepresentation] : ""));
  }
  static NSString *base64(std::string_view text) {
    return [[NSData dataWithBytes:text.data() length:text.size()] base64EncodedStringWithOptions:0];
  }
  static NSString *text(const std::string &bytes) {
    return [[[NSString alloc] initWithBytes:bytes.data() length:bytes.size()
                                   encoding:NSUTF8StringEncoding] autorelease];
  }
  /// Imports `string` as the preset `name`, which must work.
  void importString(NSString *string, NSString *name) {
    ZunoPresets *page = showPage();
    [page importPresetWithBase64String:string andName:name];
    EXPECT_OBJC_EQ([page presentedViewController], nil) << "an error is shown";
  }
  /// Imports the file `name`, which lies in the folder /picked, next to the preset of that name; that must work.
  void importFile(NSString *name) {
    NSURL *url = [NSURL fileURLWithPath:path([@"/picked/" stringByAppendingString:name])];
    [url sim_setSecurityScope:SIMSecurityScopeReadable];
    ZunoPresets *page = showPage();
    auto *picker =
        [[[UIDocumentPickerViewController alloc] initWithDocumentTypes:@[ @"public.data" ]
                                                                inMode:UIDocumentPickerModeImport] autorelease];
    [page documentPicker:picker didPickDocumentAtURL:url];
    EXPECT_OBJC_EQ([page presentedViewController], nil) << "an error is shown";
  }

  std::string script_;
};

TEST_F(PresetRoundTripTest, OtherToolsReadAnExportedString) {
  NSString *string = [showPage() base64StringFromDict:original()];
  NSString *file = write(@"/exported.txt", [string UTF8String]);
  EXPECT_EQ(tool("read-string", file), tool("expected"));
}

TEST_F(PresetRoundTripTest, AJSONParserReadsAnExportedStringKeyByKey) {
  using nlohmann::json;
  NSString *file = write(@"/exported.txt", [[showPage() base64StringFromDict:original()] UTF8String]);
  const json read = json::parse(outputOf(std::string("base64 -d ") + [file fileSystemRepresentation]), nullptr, false);
  const json expected = {{"ZunoPresetVersion", 1},
                         {"yes", true},
                         {"no", false},
                         {"one", 1},
                         {"zero", 0},
                         {"negative", -20},
                         {"largest", INT64_MAX},
                         {"smallest", INT64_MIN},
                         {"unsigned", UINT64_MAX},
                         {"beyond a double", 9007199254740993},
                         {"real", 0.1},
                         {"tiny", 5e-324},
                         {"huge", 1.7976931348623157e308},
                         {"text", "“quotes” \" / \\ \n\t <&> é"},
                         {"emoji 😀", "👩‍💻"},
                         {"", ""},
                         {"backgroundImage", "aGVsbG8="},
                         {"list", json::array({1,
                                               true,
                                               "a",
                                               json::array(),
                                               json::array({json::array({2.5}), json::object()}),
                                               {{"deep", json::array({{{"deeper", false}}})}}})},
                         {"dictionary", {{"a", {{"b", {{"c", json::array({-1})}}}}}}}};
  ASSERT_TRUE(read.is_object());
  EXPECT_EQ(read.size(), expected.size());
  for (const auto &[key, value] : expected.items()) {
    ASSERT_TRUE(read.contains(key)) << key;
    EXPECT_EQ(read[key], value) << key;
    EXPECT_EQ(read[key].is_boolean(), value.is_boolean()) << key;
    EXPECT_EQ(read[key].is_number_float(), value.is_number_float()) << key;
  }
}

TEST_F(PresetRoundTripTest, OtherToolsReadASavedPreset) {
  writePreferences(kThemeFile, original());
  [showPage() savePresetWithName:@"saved"];
  const std::string expected = tool("expected");
  EXPECT_EQ(tool("read-file", presetPath(@"saved")), expected);

  const std::string saved = [presetPath(@"saved") fileSystemRepresentation];
  for (const char *format : {"bin", "xml"}) {
    outputOf("plistutil -i " + saved + " -o " + saved + ".converted -f " + format);
    EXPECT_EQ(tool("read-file", [presetPath(@"saved") stringByAppendingString:@".converted"]), expected) << format;
  }
}

TEST_F(PresetRoundTripTest, StringsOfOtherToolsAreImported) {
  for (const char *verb : {"string", "unescaped-string"}) {
    importString(text(tool(verb)), @"theirs");
    EXPECT_OBJC_EQ(preset(@"theirs"), original()) << verb;
    EXPECT_EQ(tool("read-file", presetPath(@"theirs")), tool("expected")) << verb << ": and every type is kept";
  }
}

TEST_F(PresetRoundTripTest, FilesOfOtherToolsAreImported) {
  makeFolder(@"/picked");
  makeFolder(kPresets);
  const std::string expected = tool("expected");
  const std::string picked = [path(@"/picked/theirs.plist") fileSystemRepresentation];
  const auto importedAs = [&](NSString *name) {
    importFile(@"theirs.plist");
    EXPECT_OBJC_EQ(preset(name), original()) << [name UTF8String];
    NSString *string = [showPage() base64StringFromDict:preset(name)];
    EXPECT_EQ(tool("read-string", write(@"/exported.txt", [string UTF8String])), expected)
        << [name UTF8String] << ": and every type is kept";
  };
  (void)tool("xml", presetPath(@"theirs"));  // The preset of that name, by which the file is judged.
  (void)tool("xml", text(picked));
  importedAs(@"theirs_1");
  outputOf("plistutil -i " + picked + " -o " + picked + ".binary -f bin && mv " + picked + ".binary " + picked);
  importedAs(@"theirs_2");
  (void)tool("binary", text(picked));
  importedAs(@"theirs_3");
}

TEST_F(PresetRoundTripTest, AStringGoesRoundThroughBothImplementations) {
  importString(text(tool("string")), @"first");
  NSString *string = [showPage() base64StringFromDict:preset(@"first")];
  importString(string, @"second");
  EXPECT_TRUE(read([kPresets stringByAppendingString:@"/first.plist"]) ==
              read([kPresets stringByAppendingString:@"/second.plist"]));
  EXPECT_EQ(tool("read-file", presetPath(@"second")), tool("expected"));
}

TEST_F(PresetRoundTripTest, OfEqualKeysTheLastOneCounts) {
  importString(base64(R"({"a": 1, "b": 2, "a": "last", "c": {"d": 1, "d": [true]}})"), @"twice");
  EXPECT_OBJC_EQ(preset(@"twice"), (@{@"a" : @"last", @"b" : @2, @"c" : @{@"d" : @[ @(YES) ]}}));
}

TEST_F(PresetRoundTripTest, TextThatIsNoUTF8IsRefused) {
  for (std::string_view bytes : {"\xff", "\xc0\x80", "\xed\xa0\x80", "\xf4\x90\x80\x80", "\xe2\x82", "\x80"}) {
    const std::string json = "{\"a\": \"" + std::string(bytes) + "\"}";
    ZunoPresets *page = showPage();
    [page importPresetWithBase64String:base64(json) andName:@"broken"];
    EXPECT_NE([page presentedViewController], nil) << [base64(json) UTF8String];
    EXPECT_EQ(listing(kPresets), "");
  }
}

class LargePresetTest : public PresetRoundTripTest {
 protected:
  // Each import logs its whole string; that is not for the output of the tests.
  void SetUp() override {
    PresetRoundTripTest::SetUp();
    errors_ = ::dup(STDERR_FILENO);
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    ASSERT_GE(::dup2(nowhere, STDERR_FILENO), 0);
    ::close(nowhere);
  }
  void TearDown() override {
    ::dup2(errors_, STDERR_FILENO);
    ::close(errors_);
    PresetRoundTripTest::TearDown();
  }
  static double now() {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
  }
  /// Processor seconds to import a string of `size` bytes and to read the preset.
  double secondsFor(std::size_t size) {
    constexpr std::string_view kHead = "{\"n\":1,\"image\":\"", kTail = "\"}";
    const std::size_t length = size / 4 * 3 - kHead.size() - kTail.size();
    NSString *string = base64(std::string(kHead) + std::string(length, 'x') + std::string(kTail));
    EXPECT_GT([string length], size - 8);
    const double start = now();
    importString(string, @"large");
    NSDictionary *stored = preset(@"large");
    const double taken = now() - start;
    EXPECT_OBJC_EQ([stored objectForKey:@"n"], @1);
    EXPECT_EQ([[stored objectForKey:@"image"] length], length);
    log.clear();
    drainPool();
    return taken;
  }

 private:
  int errors_ = -1;
};

TEST_F(LargePresetTest, AStringOf64MegabytesIsImportedInLinearTime) {
  constexpr std::size_t kMegabyte = 1 << 20;
  (void)secondsFor(kMegabyte);  // What is set up once is not measured.
  const double small = secondsFor(8 * kMegabyte), large = secondsFor(64 * kMegabyte);
  RecordProperty("seconds", std::to_string(large));
  EXPECT_LT(large, small * 8 * 3) << "8 MB took " << small << " s: eightfold the size is about eightfold the time";
  EXPECT_LT(large, 60);
}

}  // namespace
