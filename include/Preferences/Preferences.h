#pragma once

#import <Preferences/PSConstants.h>
#import <Preferences/PSSpecifier.h>
#import <Preferences/PSConfirmationSpecifier.h>
#import <Preferences/PSViewController.h>
#import <Preferences/PSListController.h>
#import <Preferences/PSListItemsController.h>
#import <Preferences/PSTableCell.h>
#import <Preferences/PSControlTableCell.h>
#import <Preferences/PSSwitchTableCell.h>
#import <Preferences/PSSliderTableCell.h>
#import <Preferences/PSSegmentTableCell.h>
#import <Preferences/PSEditableTableCell.h>
#import <Preferences/PSTextViewTableCell.h>
#import <Preferences/PSSpinnerTableCell.h>
#import <Preferences/PreferencesTableCustomView.h>
