#include "../c/Language.m"
