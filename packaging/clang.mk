# Builds the settings bundle for devices with Debian's clang and lld, and lays out the files of its package.
#
#   make -f packaging/clang.mk SDK=<iPhoneOS SDK> OUT=<folder> stage
#
# from the root of the tree. Compiles what changed into OUT/objects and makes OUT/root anew.
TREE = .
include packaging/bundle.mk

PREFIX = /var/jb
CXX = clang++-19
STAGED = $(OUT)/root$(PREFIX)
STAGED_BUNDLE = $(STAGED)$(ZUNO_BUNDLE_FOLDER)/$(ZUNO_NAME).bundle

EXECUTABLE = $(OUT)/objects/$(ZUNO_NAME)
OBJECTS = $(patsubst $(TREE)/ZunoPrefs/%,$(OUT)/objects/%.o,$(ZUNO_SOURCES))

TARGET_FLAGS = -target arm64-apple-ios$(ZUNO_DEPLOYMENT_TARGET) -isysroot $(SDK)

# The SDKs before 15 leave the C++ headers to the toolchain. Newer headers than these expect more of the C++ library
# than the stubs of those SDKs export.
ifeq ($(wildcard $(SDK)/usr/include/c++/v1),)
  CXX_HEADERS = -nostdinc++ -isystem /usr/lib/llvm-14/include/c++/v1
endif

COMPILE = $(CXX) $(TARGET_FLAGS) $(CXX_HEADERS) -Os $(ZUNO_CFLAGS) $(ZUNO_CXXFLAGS) -ffile-prefix-map=$(CURDIR)=. -MMD

$(EXECUTABLE): $(OBJECTS) $(wildcard packaging/stubs/*)
	$(CXX) $(TARGET_FLAGS) -fuse-ld=lld -dynamiclib \
	  -install_name $(PREFIX)$(ZUNO_BUNDLE_FOLDER)/$(ZUNO_NAME).bundle/$(ZUNO_NAME) \
	  -F$(SDK)/System/Library/PrivateFrameworks \
	  $(addprefix -framework ,$(ZUNO_FRAMEWORKS) $(ZUNO_PRIVATE_FRAMEWORKS)) \
	  $(addprefix -l,$(ZUNO_LIBRARIES)) $(ZUNO_LDFLAGS) \
	  -Wl,-dead_strip -Wl,-x -Wl,-adhoc_codesign $(OBJECTS) -o $@

$(OUT)/objects/%.o: ZunoPrefs/% packaging/bundle.mk packaging/clang.mk
	@mkdir -p $(@D)
	$(COMPILE) -c $< -o $@

.PHONY: stage
stage: $(EXECUTABLE)
	rm -rf $(OUT)/root
	install -d $(STAGED_BUNDLE)
	cp -R $(ZUNO_RESOURCES)/. $(STAGED_BUNDLE)
	install -m 755 $(EXECUTABLE) $(STAGED_BUNDLE)
	$(call zuno_stage_files,$(STAGED))
	chmod -R u=rwX,go=rX $(OUT)/root

-include $(OBJECTS:.o=.d)
