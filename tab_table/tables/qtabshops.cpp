#include "qtabshops.h"
