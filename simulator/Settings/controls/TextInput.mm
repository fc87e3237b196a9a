#import "Settings/controls/TextInput.h"

namespace sim {
namespace {

const char *keyboardName(UIKeyboardType type) {
  switch (type) {
    case UIKeyboardTypeNumberPad:
    case UIKeyboardTypeNumbersAndPunctuation: return "numeric";
    case UIKeyboardTypeDecimalPad: return "decimal";
    case UIKeyboardTypePhonePad: return "tel";
    case UIKeyboardTypeURL: return "url";
    case UIKeyboardTypeEmailAddress: return "email";
    default: return "text";
  }
}

const char *capitalsName(UITextAutocapitalizationType type) {
  switch (type) {
    case UITextAutocapitalizationTypeNone: return "none";
    case UITextAutocapitalizationTypeWords: return "words";
    case UITextAutocapitalizationTypeAllCharacters: return "characters";
    default: return "sentences";
  }
}

const char *returnKeyName(UIReturnKeyType type) {
  switch (type) {
    case UIReturnKeyGo: return "go";
    case UIReturnKeyNext: return "next";
    case UIReturnKeySearch: return "search";
    case UIReturnKeySend: return "send";
    case UIReturnKeyDone: return "done";
    default: return "return";
  }
}

/// True or false; null for what is left to the system.
template <typename Type>
void writeChoice(JsonText &out, Type choice, Type yes, Type no) {
  if (choice == yes) return out.flag(true);
  if (choice == no) return out.flag(false);
  out.null();
}

}  // namespace

void writeInputTraits(JsonText &out, id<UITextInputTraits> field) {
  out.name("keyboard").string(keyboardName([field keyboardType]));
  out.name("autocapitalization").string(capitalsName([field autocapitalizationType]));
  writeChoice(out.name("autocorrection"), [field autocorrectionType], UITextAutocorrectionTypeYes,
              UITextAutocorrectionTypeNo);
  writeChoice(out.name("spellChecking"), [field spellCheckingType], UITextSpellCheckingTypeYes,
              UITextSpellCheckingTypeNo);
  out.name("returnKey").string(returnKeyName([field returnKeyType]));
}

const char *textToEnter(const Json &value, NSString **text) {
  if (!value.is_string()) return "A text field is set to a text.";
  *text = stringFrom(value.get_ref<const std::string &>());
  return nullptr;
}

}  // namespace sim
