#include "qtabgoodsshops.h"
