// QuartzCore: the layer properties of a view.
#pragma once

#import <QuartzCore/CALayer.h>
