# Read behind a maker's Makefile: prints what that says of the project, and stages what it installs by rules of its own.
# Whoever runs it sets THEOS, a folder in which the files that a Makefile includes from there are made, empty.

maker_tell = $(info maker: $(1) $($(1)))
maker_of_all := BUNDLE_NAME TWEAK_NAME LIBRARY_NAME SUBPROJECTS \
  ADDITIONAL_CFLAGS ADDITIONAL_OBJCFLAGS ADDITIONAL_CCFLAGS ADDITIONAL_OBJCCFLAGS
maker_of_each := FILES OBJC_FILES OBJCC_FILES C_FILES CC_FILES CPP_FILES LOGOS_FILES SWIFT_FILES \
  CFLAGS OBJCFLAGS CCFLAGS CXXFLAGS OBJCCFLAGS \
  FRAMEWORKS PRIVATE_FRAMEWORKS EXTRA_FRAMEWORKS WEAK_FRAMEWORKS LIBRARIES \
  INSTALL_PATH RESOURCE_DIRS RESOURCE_FILES BUNDLE_EXTENSION
maker_sources = $(foreach each,$(filter %FILES,$(maker_of_each)),$($(1)_$(each)))

.PHONY: maker-tell maker-stage
maker-tell:
	@:$(foreach each,$(maker_of_all),$(call maker_tell,$(each)))
	@:$(foreach name,$(BUNDLE_NAME),$(foreach each,$(maker_of_each),$(call maker_tell,$(name)_$(each))))
	@:$(foreach name,$(BUNDLE_NAME),$(foreach file,$(call maker_sources,$(name)),$(call maker_tell,$(file)_CFLAGS)))

before-stage internal-stage stage after-stage::
maker-stage: before-stage internal-stage stage after-stage

$(THEOS)/%:
	@mkdir -p $(@D) && touch $@
