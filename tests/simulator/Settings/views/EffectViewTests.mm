// How visual effect views are described.
#include "simulator/Settings/SessionTest.h"

namespace {

class EffectViewTest : public SessionTest {
 protected:
  Json effectOf(UIVisualEffect *effect) {
    const auto made = objcxx::adopt([[UIVisualEffectView alloc] initWithEffect:effect]);
    const auto around = view(300, 100);
    [around.get() addSubview:made.get()];
    const Json described = describedView(around.get())["views"][0];
    EXPECT_EQ(described["type"], "effect");
    return described["effect"];
  }
};

TEST_F(EffectViewTest, aBlurHasATintForEitherAppearance) {
  const Json blur = effectOf([UIBlurEffect effectWithStyle:UIBlurEffectStyleSystemMaterial]);
  EXPECT_EQ(blur["type"], "blur");
  EXPECT_EQ(blur["tint"]["light"], "#f7f7f7b8");
  EXPECT_EQ(blur["tint"]["dark"], "#242424bd");
  EXPECT_EQ(blur["radius"], 20);
}

TEST_F(EffectViewTest, stylesOfOneAppearanceKeepIt) {
  const auto tintOf = [&](UIBlurEffectStyle style) { return effectOf([UIBlurEffect effectWithStyle:style])["tint"]; };
  const Json material = tintOf(UIBlurEffectStyleSystemThickMaterial);
  EXPECT_EQ(tintOf(UIBlurEffectStyleSystemThickMaterialDark), material["dark"]);
  EXPECT_EQ(tintOf(UIBlurEffectStyleSystemThickMaterialLight), material["light"]);
}

TEST_F(EffectViewTest, vibrancyIsWhiteOnDarkAndBlackOnLight) {
  const auto vibrant = [&](UIBlurEffectStyle style) {
    return effectOf([UIVibrancyEffect effectForBlurEffect:[UIBlurEffect effectWithStyle:style]
                                                    style:UIVibrancyEffectStyleSecondaryLabel]);
  };
  EXPECT_EQ(vibrant(UIBlurEffectStyleSystemMaterialDark)["color"], "#ffffff99");
  EXPECT_EQ(vibrant(UIBlurEffectStyleExtraLight)["color"], "#00000099");
  const Json both = vibrant(UIBlurEffectStyleSystemMaterial);
  EXPECT_EQ(both["type"], "vibrancy");
  EXPECT_EQ(both["color"], Json({{"light", "#00000099"}, {"dark", "#ffffff99"}}));
}

TEST_F(EffectViewTest, vibrancyOfLabelsKeepsTheirColours) {
  UIBlurEffect *blur = [UIBlurEffect effectWithStyle:UIBlurEffectStyleDark];
  EXPECT_TRUE(effectOf([UIVibrancyEffect effectForBlurEffect:blur])["color"].is_null());
}

TEST_F(EffectViewTest, withoutAnEffectThereIsNone) { EXPECT_TRUE(effectOf(nil).is_null()); }

}  // namespace
