#include "Services/AppBlockerService.h"
