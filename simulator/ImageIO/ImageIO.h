// ImageIO: thumbnails of image files.
#pragma once

#import <ImageIO/CGImageSource.h>
