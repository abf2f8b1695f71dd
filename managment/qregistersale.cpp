#include "qregistersale.h"
