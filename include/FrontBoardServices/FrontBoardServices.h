#pragma once

#import <FrontBoardServices/FBSSystemService.h>
