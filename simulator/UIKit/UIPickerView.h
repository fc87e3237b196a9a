// Wheels of rows, of which one each is in the middle. Main thread only.
#pragma once

#import <UIKit/UIView.h>

#include <objcxx/HiddenState.h>

@class UIPickerView;

@protocol UIPickerViewDataSource <NSObject>
- (NSInteger)numberOfComponentsInPickerView:(UIPickerView *)pickerView;
- (NSInteger)pickerView:(UIPickerView *)pickerView numberOfRowsInComponent:(NSInteger)component;
@end

@protocol UIPickerViewDelegate <NSObject>
@optional
/// In points; without it the components share the picker's width.
- (CGFloat)pickerView:(UIPickerView *)pickerView widthForComponent:(NSInteger)component;
/// In points; 32 without it. Asked once for a component.
- (CGFloat)pickerView:(UIPickerView *)pickerView rowHeightForComponent:(NSInteger)component;
/// Of these three the last that there is counts. Of an attributed title its text and its colour are shown.
- (NSString *)pickerView:(UIPickerView *)pickerView titleForRow:(NSInteger)row forComponent:(NSInteger)component;
- (NSAttributedString *)pickerView:(UIPickerView *)pickerView
             attributedTitleForRow:(NSInteger)row
                      forComponent:(NSInteger)component;
/// The view is centred in its row; one without a size gets the row's. `view`, or nil, was given before and shows no
/// more.
- (UIView *)pickerView:(UIPickerView *)pickerView
            viewForRow:(NSInteger)row
          forComponent:(NSInteger)component
           reusingView:(UIView *)view;
/// A finger has turned the wheel to another row.
- (void)pickerView:(UIPickerView *)pickerView didSelectRow:(NSInteger)row inComponent:(NSInteger)component;
@end

SIM_STATE_TYPE(PickerViewState);

/// 320 × 216 points unless a size was given.
@interface UIPickerView : UIView {
 @private
  SIM_STATE(PickerViewState, _pickerViewState);
}
/// Not owned. Its counts are asked for when they are needed first, and again after a reload.
@property(nonatomic, assign) id<UIPickerViewDataSource> dataSource;
/// Not owned.
@property(nonatomic, assign) id<UIPickerViewDelegate> delegate;
@property(nonatomic, readonly) NSInteger numberOfComponents;
/// 0 for a component that is not there.
- (NSInteger)numberOfRowsInComponent:(NSInteger)component;
/// In points; CGSizeZero for a component that is not there.
- (CGSize)rowSizeForComponent:(NSInteger)component;
/// nil for a row that does not show, and where the delegate makes no views.
- (UIView *)viewForRow:(NSInteger)row forComponent:(NSInteger)component;
/// What was selected stays, or is the last row there is.
- (void)reloadAllComponents;
- (void)reloadComponent:(NSInteger)component;
/// The delegate is not told. A row or a component that is not there is ignored.
- (void)selectRow:(NSInteger)row inComponent:(NSInteger)component animated:(BOOL)animated;
/// The first row until another one is selected; -1 for a component without rows, or one that is not there.
- (NSInteger)selectedRowInComponent:(NSInteger)component;
@end
