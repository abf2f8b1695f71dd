#include "qtabkass.h"
