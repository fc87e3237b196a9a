// The part of SafariServices that the simulator carries.
#pragma once

#import <SafariServices/SFSafariViewController.h>
