#pragma once

#import <Preferences/PreferencesTableCustomView.h>
