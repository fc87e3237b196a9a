// Foundation's headers include this name when the compiler knows blocks.
#pragma once

#include <Block.h>
