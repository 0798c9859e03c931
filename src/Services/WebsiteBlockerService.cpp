#include "Services/WebsiteBlockerService.h"
