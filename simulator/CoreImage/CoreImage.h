// CoreImage: images as recipes, the colour-inverting filter, and rendering.
#pragma once

#import <CoreImage/CIContext.h>
#import <CoreImage/CIFilter.h>
#import <CoreImage/CIImage.h>
