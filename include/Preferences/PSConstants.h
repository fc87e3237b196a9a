// Keys of a specifier's properties and of the property lists that specifiers are loaded from.
#pragma once

#import <Foundation/Foundation.h>

#ifdef __cplusplus
#define PS_EXTERN extern "C"
#else
#define PS_EXTERN extern
#endif

// What a row is.
PS_EXTERN NSString *const PSIDKey;               // "id": identifier, unique on its page
PS_EXTERN NSString *const PSTitleKey;            // "label"
PS_EXTERN NSString *const PSTableCellClassKey;   // "cell": name of the cell type
PS_EXTERN NSString *const PSCellClassKey;        // "cellClass": class of the cell; a Class once loaded
PS_EXTERN NSString *const PSEnabledKey;          // "enabled": BOOL
PS_EXTERN NSString *const PSTableCellHeightKey;  // "height": points
PS_EXTERN NSString *const PSAlignmentKey;        // "alignment": left, center, right or NSTextAlignment

// Where its value is.
PS_EXTERN NSString *const PSKeyNameKey;                   // "key"
PS_EXTERN NSString *const PSDefaultsKey;                  // "defaults": the preference domain
PS_EXTERN NSString *const PSDefaultValueKey;              // "default"
PS_EXTERN NSString *const PSValueKey;                     // "value": as last read or written
PS_EXTERN NSString *const PSNegateValueKey;               // "negate": BOOL
PS_EXTERN NSString *const PSValueChangedNotificationKey;  // "PostNotification": Darwin notification name
PS_EXTERN NSString *const PSSetterKey;                    // "set": selector (value, specifier)
PS_EXTERN NSString *const PSGetterKey;                    // "get": selector (specifier)

// What a tap does.
PS_EXTERN NSString *const PSDetailControllerClassKey;     // "detail"
PS_EXTERN NSString *const PSActionKey;                    // "action"
PS_EXTERN NSString *const PSButtonActionKey;              // "buttonAction"
PS_EXTERN NSString *const PSControllerLoadActionKey;      // "loadAction"
PS_EXTERN NSString *const PSEditPaneClassKey;             // "pane"
PS_EXTERN NSString *const PSConfirmationKey;              // "confirmation": dictionary of the next four
PS_EXTERN NSString *const PSConfirmationTitleKey;         // "title"
PS_EXTERN NSString *const PSConfirmationPromptKey;        // "prompt"
PS_EXTERN NSString *const PSConfirmationOKKey;            // "okTitle"
PS_EXTERN NSString *const PSConfirmationCancelKey;        // "cancelTitle"
PS_EXTERN NSString *const PSConfirmationActionKey;        // "confirmationAction"
PS_EXTERN NSString *const PSConfirmationCancelActionKey;  // "cancel"
PS_EXTERN NSString *const PSConfirmationDestructiveKey;   // "isDestructive"

// Another bundle's page.
PS_EXTERN NSString *const PSBundlePathKey;                    // "bundle"
PS_EXTERN NSString *const PSBundleIsControllerKey;            // "isController"
PS_EXTERN NSString *const PSLazilyLoadedBundleKey;            // "lazy-bundle": path of the bundle
PS_EXTERN NSString *const PSBundleOverridePrincipalClassKey;  // "overridePrincipalClass"

// Groups.
PS_EXTERN NSString *const PSFooterTextGroupKey;             // "footerText"
PS_EXTERN NSString *const PSFooterAlignmentGroupKey;        // "footerAlignment": NSTextAlignment
PS_EXTERN NSString *const PSHeaderCellClassGroupKey;        // "headerCellClass": class name
PS_EXTERN NSString *const PSFooterCellClassGroupKey;        // "footerCellClass": class name
PS_EXTERN NSString *const PSHeaderViewKey;                  // "headerView": made once for the group
PS_EXTERN NSString *const PSFooterViewKey;                  // "footerView"
PS_EXTERN NSString *const PSIsRadioGroupKey;                // "isRadioGroup"
PS_EXTERN NSString *const PSRadioGroupCheckedSpecifierKey;  // "radioGroupCheckedSpecifier"

// A footer with a link, of the class PSFooterHyperlinkView.
PS_EXTERN NSString *const PSFooterHyperlinkViewTitleKey;      // "footerHyperlinkView_title": the text
PS_EXTERN NSString *const PSFooterHyperlinkViewLinkRangeKey;  // "footerHyperlinkView_linkRange": "{location, length}"
PS_EXTERN NSString *const PSFooterHyperlinkViewTargetKey;     // "footerHyperlinkView_target": NSValue; not owned
PS_EXTERN NSString *const PSFooterHyperlinkViewActionKey;     // "footerHyperlinkView_action": name of a selector
PS_EXTERN NSString *const PSFooterHyperlinkViewURLKey;        // "footerHyperlinkView_URL": NSURL or text

// Rows that can be deleted.
PS_EXTERN NSString *const PSDeletionActionKey;  // "deletionAction": selector (specifier)

// Choices.
PS_EXTERN NSString *const PSValidValuesKey;            // "validValues"
PS_EXTERN NSString *const PSValidTitlesKey;            // "validTitles"
PS_EXTERN NSString *const PSShortTitlesKey;            // "shortTitles"
PS_EXTERN NSString *const PSValuesDataSourceKey;       // "valuesDataSource"
PS_EXTERN NSString *const PSTitlesDataSourceKey;       // "titlesDataSource"
PS_EXTERN NSString *const PSShortTitlesDataSourceKey;  // "shortTitlesDataSource"
PS_EXTERN NSString *const PSStaticTextMessageKey;      // "staticTextMessage"
PS_EXTERN NSString *const PSStaticHeaderTextKey;       // "staticHeaderText"
PS_EXTERN NSString *const PSDeferItemSelectionKey;     // "deferItemSelection"

// Controls.
PS_EXTERN NSString *const PSControlKey;             // "control": the live control
PS_EXTERN NSString *const PSControlMinimumKey;      // "min"
PS_EXTERN NSString *const PSControlMaximumKey;      // "max"
PS_EXTERN NSString *const PSSliderShowValueKey;     // "showValue"
PS_EXTERN NSString *const PSSliderIsContinuous;     // "isContinuous"
PS_EXTERN NSString *const PSSliderIsSegmentedKey;   // "isSegmented": BOOL
PS_EXTERN NSString *const PSSliderSegmentCountKey;  // "segmentCount": how many steps there are from end to end
PS_EXTERN NSString *const PSSliderLeftImageKey;     // "leftImage"
PS_EXTERN NSString *const PSSliderRightImageKey;    // "rightImage"

// Text.
PS_EXTERN NSString *const PSPlaceholderKey;           // "placeholder"
PS_EXTERN NSString *const PSKeyboardTypeKey;          // "keyboard": numbers, phone
PS_EXTERN NSString *const PSNumberKeyboardKey;        // "isNumeric"
PS_EXTERN NSString *const PSDecimalKeyboardKey;       // "isDecimalPad"
PS_EXTERN NSString *const PSIPKeyboardKey;            // "isIP"
PS_EXTERN NSString *const PSURLKeyboardKey;           // "isURL"
PS_EXTERN NSString *const PSEmailAddressKeyboardKey;  // "isEmail"
PS_EXTERN NSString *const PSAutoCapsKey;              // "autoCaps": sentences, words, all
PS_EXTERN NSString *const PSAutoCorrectionKey;        // "autoCorrection"

// Icons and cells.
PS_EXTERN NSString *const PSIconImageKey;       // "iconImage": UIImage
PS_EXTERN NSString *const PSBundleIconPathKey;  // "icon": file name in the bundle
PS_EXTERN NSString *const PSTableCellKey;       // "cellObject": the live cell
