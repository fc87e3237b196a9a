#pragma once

#import <SpringBoardServices/SBSRelaunchAction.h>
#import <SpringBoardServices/SBSRestartRenderServerAction.h>
