#include "qtabgoods.h"
