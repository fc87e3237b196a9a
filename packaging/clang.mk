# Builds the settings bundle for devices with Debian's clang and lld, and lays out the files of its package.
#
#   make -f packaging/clang.mk SDK=<iPhoneOS SDK> OUT=<folder> [ARCHS="arm64 arm64e"] stage
#   make -f packaging/clang.mk OUT=<folder> deb
#
# from the root of the tree. `stage` compiles what changed into OUT/<kind of processor> and makes OUT/root anew; `deb`
# makes OUT/package.deb of OUT/root.
TREE = .
include packaging/bundle.mk

PREFIX = /var/jb
STAGED = $(OUT)/root$(PREFIX)
STAGED_BUNDLE = $(STAGED)$(ZUNO_BUNDLE_FOLDER)/$(ZUNO_NAME).bundle

ARCHS = arm64 arm64e
SLICES = $(ARCHS:%=$(OUT)/%/$(ZUNO_NAME))
SOURCE_NAMES = $(ZUNO_SOURCES:$(TREE)/ZunoPrefs/%=%)
TOOLS = packaging/device-clang packaging/arm64e $(wildcard packaging/pointerauth/*.py)

# The SDK's stubs that the bundle is linked against, as paths below it.
STUBS = $(foreach name,$(ZUNO_FRAMEWORKS),System/Library/Frameworks/$(name).framework/$(name).tbd) \
  $(foreach name,$(ZUNO_PRIVATE_FRAMEWORKS),System/Library/PrivateFrameworks/$(name).framework/$(name).tbd) \
  usr/lib/libSystem.tbd usr/lib/libc++.tbd usr/lib/libobjc.tbd

COMPILE_FLAGS = $(ZUNO_CFLAGS) $(ZUNO_CXXFLAGS) "-ffile-prefix-map=$(CURDIR)=."
LINK_FLAGS = -install_name $(PREFIX)$(ZUNO_BUNDLE_FOLDER)/$(ZUNO_NAME).bundle/$(ZUNO_NAME) \
  "-F$(SDK)/System/Library/PrivateFrameworks" \
  $(addprefix -framework ,$(ZUNO_FRAMEWORKS) $(ZUNO_PRIVATE_FRAMEWORKS)) \
  $(addprefix -l,$(ZUNO_LIBRARIES)) $(ZUNO_LDFLAGS)

# $(1): the kind of processor.
define slice_rules
$(OUT)/$(1)/%.o: ZunoPrefs/% packaging/bundle.mk packaging/clang.mk $(TOOLS)
	@mkdir -p $$(@D)
	packaging/device-clang $(1)-apple-ios$(ZUNO_DEPLOYMENT_TARGET) "$(SDK)" -c $$< -o $$@ \
	  $(COMPILE_FLAGS) -MMD -MP -MF $$(@:.o=.d) -MT $$@

# What is linked, in a file that is written when it changes: a source that is gone leaves nothing newer than the
# executable behind, and the names of an SDK's stubs may hold what make takes for the end of a name.
$(OUT)/$(1)/inputs: always
	@mkdir -p $$(@D)
	@{ printf '%s\n' $(SOURCE_NAMES) && cd "$(SDK)" && cksum $(STUBS); } >$$@.new
	@cmp --silent $$@.new $$@ && rm $$@.new || mv $$@.new $$@

$(OUT)/$(1)/$(ZUNO_NAME): $(SOURCE_NAMES:%=$(OUT)/$(1)/%.o) $(OUT)/$(1)/inputs $(wildcard packaging/stubs/*)
	packaging/device-clang $(1)-apple-ios$(ZUNO_DEPLOYMENT_TARGET) "$(SDK)" -dynamiclib $$(filter %.o,$$^) -o $$@ \
	  $(LINK_FLAGS)

-include $(SOURCE_NAMES:%=$(OUT)/$(1)/%.d)
endef
$(foreach arch,$(ARCHS),$(eval $(call slice_rules,$(arch))))

.DEFAULT_GOAL = stage
.PHONY: stage always
stage: $(SLICES)
	rm -rf $(OUT)/root
	install -d $(STAGED_BUNDLE)
	cp -R $(ZUNO_RESOURCES)/. $(STAGED_BUNDLE)
	llvm-lipo-22 -create $(SLICES) -output $(STAGED_BUNDLE)/$(ZUNO_NAME)
	$(call zuno_stage_files,$(STAGED))
	chmod -R u=rwX,go=rX $(OUT)/root
	chmod 755 $(STAGED_BUNDLE)/$(ZUNO_NAME)

.PHONY: stubs
stubs:
	@printf '%s\n' $(STUBS)

# Owners are only noted: where the building user is root of a namespace, others cannot be had.
.PHONY: deb
deb:
	FAKEROOTDONTTRYCHOWN=1 fakeroot sh -c 'chown -R 0:0 $(OUT)/root && $(call zuno_give_to_user,$(STAGED)) && \
	  dpkg-deb -Zxz --build $(OUT)/root $(OUT)/package.deb' >/dev/null
