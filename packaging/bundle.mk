# What the settings bundle consists of, for both device builds: clang.mk (Debian's clang and lld) and Makefile (Theos).
# Whoever includes this sets TREE, the path of the source tree.

comma := ,

ZUNO_NAME = ZunoPrefs
ZUNO_DEPLOYMENT_TARGET = 15.0

ZUNO_SOURCES := $(sort $(wildcard $(TREE)/ZunoPrefs/*/*.mm $(TREE)/ZunoPrefs/*/*.cpp))
ZUNO_RESOURCES = $(TREE)/ZunoPrefs/Resources

ZUNO_FRAMEWORKS = Foundation UIKit CoreGraphics CoreImage CoreFoundation ImageIO
ZUNO_PRIVATE_FRAMEWORKS = Preferences
ZUNO_LIBRARIES = norvikapplist
# Loaded with the bundle although nothing of it is called.
ZUNO_NEEDED_LIBRARIES = norvikcolourpicker

ZUNO_CFLAGS = -fno-objc-arc -I$(TREE)/ZunoPrefs -I$(TREE)/include -Wall -Wextra -Werror \
  -Werror=objc-property-implementation -Werror=incompatible-pointer-types -Werror=objc-method-access \
  -Wno-deprecated-declarations
ZUNO_CXXFLAGS = -std=c++20
ZUNO_LDFLAGS = -L$(TREE)/packaging/stubs $(addprefix -Wl$(comma)-needed-l,$(ZUNO_NEEDED_LIBRARIES))

# Where things go, below the root of the jailbreak.
ZUNO_BUNDLE_FOLDER = /Library/PreferenceBundles
ZUNO_ENTRY_FOLDER = /Library/PreferenceLoader/Preferences
ZUNO_HEADER_FOLDER = /usr/include/Zuno
# Settings runs as the user mobile, who may not make folders in /Library: these come with the package and are his.
ZUNO_USER_FOLDERS = /Library/Zuno/Presets /Library/Zuno/Widgets
ZUNO_USER = 501:501

# $(call zuno_stage_files,ROOT): shell commands that install what belongs outside the bundle.
zuno_stage_files = install -d "$(1)$(ZUNO_ENTRY_FOLDER)" "$(1)$(ZUNO_HEADER_FOLDER)" && \
  install -d $(foreach folder,$(ZUNO_USER_FOLDERS),"$(1)$(folder)") && \
  install -m 644 $(TREE)/ZunoPrefs/com.norvik.Zuno.plist "$(1)$(ZUNO_ENTRY_FOLDER)" && \
  install -m 644 $(TREE)/ZunoPrefs/widgets/ZunoWidgetProtocol.h "$(1)$(ZUNO_HEADER_FOLDER)"

# $(call zuno_give_to_user,ROOT): a shell command, for fakeroot, that gives these folders their owner.
zuno_give_to_user = chown $(ZUNO_USER) $(foreach folder,$(ZUNO_USER_FOLDERS),"$(1)$(folder)")
